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
         QT_TRANSLATE_NOOP("DesignerPlugin", "A text whose end stays visible"),
         QT_TRANSLATE_NOOP("DesignerPlugin",
                           "A label for a line of text whose end matters most, such as a path. If the text does not "
                           "fit, an ellipsis replaces its beginning, and the tool tip shows the whole text."),
         drawElidedText, true, nullptr, create<ElidedTextLabel>},
        {"zelmar::ui::ComboBoxAutoFilter", "QComboBox", "ui/qt/controls/ComboBoxAutoFilter.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "A choice that is narrowed down by typing"),
         QT_TRANSLATE_NOOP("DesignerPlugin",
                           "A combo box that lists the items containing the typed text. The application makes it "
                           "editable with setListModel() or setCompleterAttributes()."),
         drawFilteredChoice, false, nullptr, create<ComboBoxAutoFilter>},
        {"zelmar::ui::CorrectFontCommandLinkButton", "QCommandLinkButton",
         "ui/qt/controls/CorrectFontCommandLinkButton.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "A command link that is never squeezed"),
         QT_TRANSLATE_NOOP("DesignerPlugin",
                           "A command link button that a layout never makes smaller than its text and description "
                           "need."),
         drawCommandLink, true, nullptr, createCommandLinkButton},
        {"zelmar::ui::IntegralSpinBox", "QSpinBox", "ui/qt/controls/IntegralSpinBox.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "Integers, with steps that the application may take over"),
         QT_TRANSLATE_NOOP("DesignerPlugin",
                           "A spin box for integers. While the application is connected to signalIncrement or "
                           "signalDecrement, a step in that direction emits the signal instead of changing the value."),
         drawInteger, false, nullptr, createIntegralSpinBox},
        {"zelmar::ui::QScientificSpinBox", "QDoubleSpinBox", "ui/qt/controls/QScientificSpinBox.h",
         QT_TRANSLATE_NOOP("DesignerPlugin", "Any double, in scientific notation"),
         QT_TRANSLATE_NOOP("DesignerPlugin",
                           "A spin box for any double that shows and accepts scientific notation. The property "
                           "\"decimals\" sets how many significant digits are shown and does not round the value. The "
                           "application can take over the steps."),
         drawScientificNumber, false,
         QT_TRANSLATE_NOOP("DesignerPlugin", "The number of significant digits that are shown, at most 12"),
         createScientificSpinBox},
    };
    return widgets;
}

} // namespace zelmar::internal
