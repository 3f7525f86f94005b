#include "ui/qt/designer/widgetTable_p.h"

#include "ui/qt/controls/ComboBoxAutoFilter.h"
#include "ui/qt/controls/ElidedTextLabel.h"
#include "ui/qt/designer/formWidgets_p.h"

namespace zelmar::internal {

using namespace ui;

namespace {

template <typename Widget>
QWidget* create(QWidget* parent)
{
    return new Widget(parent);
}

} // namespace

const QVector<DesignerWidget>& designerWidgets()
{
    static const QVector<DesignerWidget> widgets = {
        {"ElidedTextLabel", "QFrame", "ui/qt/controls/ElidedTextLabel.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "A text whose end stays visible"), create<ElidedTextLabel>},
        {"zelmar::ui::ComboBoxAutoFilter", "QComboBox", "ui/qt/controls/ComboBoxAutoFilter.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "A choice that is narrowed down by typing"), create<ComboBoxAutoFilter>},
        {"zelmar::ui::CorrectFontCommandLinkButton", "QCommandLinkButton",
         "ui/qt/controls/CorrectFontCommandLinkButton.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "A command link that is never squeezed"), createCommandLinkButton},
        {"zelmar::ui::IntegralSpinBox", "QSpinBox", "ui/qt/controls/IntegralSpinBox.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "Integers, with steps that the application may take over"),
         createIntegralSpinBox},
        {"zelmar::ui::QScientificSpinBox", "QDoubleSpinBox", "ui/qt/controls/QScientificSpinBox.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "Any double, in scientific notation"), createScientificSpinBox},
    };
    return widgets;
}

} // namespace zelmar::internal
