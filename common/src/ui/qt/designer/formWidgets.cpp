#include "ui/qt/designer/formWidgets_p.h"

#include "ui/qt/controls/CorrectFontCommandLinkButton.h"
#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"

namespace zelmar::internal {

namespace published = ::zelmar::ui;

} // namespace zelmar::internal

// moc reads these classes as zelmar::ui::... and writes these names into the meta-objects, as forms need them. The
// compiler reads classes in zelmar::internal::ui that are derived from the public ones.
#ifdef Q_MOC_RUN
namespace zelmar::ui {
#else
namespace zelmar::internal::ui {
#endif

class CorrectFontCommandLinkButton : public published::CorrectFontCommandLinkButton
{
    Q_OBJECT

public:
    using published::CorrectFontCommandLinkButton::CorrectFontCommandLinkButton;
};

class IntegralSpinBox : public published::IntegralSpinBox
{
    Q_OBJECT

public:
    using published::IntegralSpinBox::IntegralSpinBox;
};

/// Replaces the property of QDoubleSpinBox, whose setter rounds the value.
class QScientificSpinBox : public published::QScientificSpinBox
{
    Q_OBJECT
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)

public:
    using published::QScientificSpinBox::QScientificSpinBox;
};

} // namespace zelmar::internal::ui

namespace zelmar::internal {

QWidget* createCommandLinkButton(QWidget* parent)
{
    return new ui::CorrectFontCommandLinkButton(parent);
}

QWidget* createIntegralSpinBox(QWidget* parent)
{
    return new ui::IntegralSpinBox(parent);
}

QWidget* createScientificSpinBox(QWidget* parent)
{
    return new ui::QScientificSpinBox(parent);
}

} // namespace zelmar::internal

// moc has written definitions for zelmar::ui, which the macro makes those for zelmar::internal::ui. The names in the
// meta-objects are string literals, which no macro changes.
#define zelmar zelmar::internal
#include "formWidgets.moc"
#undef zelmar
