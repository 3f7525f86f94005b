#pragma once

#include "common_ui_qt_export.h"

#include <boost/signals2/signal.hpp>

#include <QDoubleSpinBox>
#include <QString>
#include <QValidator>

#include <memory>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A spin box for any double that shows and accepts scientific notation, for example 1.5E-07. The text is rounded to a
/// number of significant digits, but the value is not. The application can take over the steps, as with
/// IntegralSpinBox.
///
///     auto* flow = new zelmar::ui::QScientificSpinBox(&window);
///     flow->setDecimals(4);
///     flow->setSuffix(" mol/s");
///     flow->signalIncrement.connect([=] { flow->setValue(flow->value() * 10); });
///     connect(flow, SIGNAL(valueChanged(double)), this, SLOT(setFlow(double)));
///
/// The decimal point is "." and the group separator is ",", regardless of the locales of the user, the widget and the C
/// library. The initial range is that of a double. Keyboard tracking is off: a typed value is set when editing finishes
/// (by Return or by losing the focus) and not with each key.
///
/// The box handles typed text as follows:
/// - Text that cannot become a number is refused. A number outside the range can be typed, because a longer number may
///   be inside ("5" on the way to "5e-3"), but it is not set: the box returns to its value when editing finishes.
/// - "1,234" is read as 1234. "1,23" may be meant as a decimal fraction. It can be typed, but it is set neither as
///   1.23 nor as 123.
///   Kept for existing callers, see docs/compatibility.md: commas-never-final.
///
/// Known traps:
/// - decimals() and setDecimals() hide the non-virtual functions of QDoubleSpinBox. Calls through a QDoubleSpinBox and
///   the property "decimals" still reach the base class, whose setDecimals() rounds the value to digits after the
///   decimal point and does not change the number of shown digits. Only in Qt Designer, and in forms that QUiLoader
///   loads, does the property reach this class.
/// - Return commits the shown text even if nothing was typed, and the value becomes the rounded number. Losing the
///   focus does not commit it.
/// - Next to the largest double, the shown text may be rounded to a number that is no double, such as 1.798E+308 with
///   four digits. The value is right, but the text cannot be committed.
/// - All boxes of a process share the result of the last validation. If a box validates the same text next, it gets
///   this result even if its range differs. The text is stored without its group separators, so "123" is not accepted
///   directly after "1,23".
///   Kept for existing callers, see docs/compatibility.md: shared-validation-cache.
/// - setValue() rounds to 323 digits after the decimal point, the maximum that Qt supports: numbers below 1E-307 lose
///   their last bits, and -0 becomes 0. Infinities become the bounds of the range.
/// - A step starts from value() and discards a number that was typed but not committed. A slot that needs this number
///   calls interpretText() first.
/// - At a bound of the range Qt performs no further step in that direction, so no signal is emitted. setWrapping(true)
///   makes Qt perform it.
/// - A slot must delete the box by deleteLater(), because Qt uses the box after a step by key or arrow.
///
/// GUI thread only. Slots are called on this thread, within the step.
class COMMON_UI_QT_EXPORT QScientificSpinBox : public QDoubleSpinBox
{
public:
    /// Constructs a box with the value 0 that shows up to 8 significant digits.
    explicit QScientificSpinBox(QWidget* parent = nullptr);
    ~QScientificSpinBox() override;

    /// Returns the number that setDecimals() has stored, initially 8.
    int decimals() const;

    /// Sets the maximum number of significant digits that are shown. If `d` is above 12, 12 is stored. 0 shows one
    /// digit, and a negative number shows six. Neither the value nor a text that the user is typing changes.
    void setDecimals(int d);

    /// Returns the text for `value`, without prefix and suffix.
    QString textFromValue(double value) const override;

    /// Returns the number that `text` represents. If `text` is not acceptable, returns the minimum of the range if its
    /// maximum is above 0, and the maximum otherwise.
    double valueFromText(const QString& text) const override;

    /// Returns Acceptable if `text` is a number in the range, Intermediate if it may become one, and Invalid otherwise.
    /// Never changes `text`. Moves `pos`, the cursor position as a code unit index, back by the number of surrounding
    /// white space characters and group separators that had to be removed in order to read the number.
    QValidator::State validate(QString& text, int& pos) const override;

    /// Does nothing. The base class would remove the locale's group separators and turn "1.5" into 15 in a German
    /// locale.
    void fixup(QString& text) const override;

    /// Emits signalIncrement once if `steps` is 1 or more, or signalDecrement once otherwise, provided that a slot is
    /// connected to that signal. If none is, adds `steps` times the single step to the value and selects the number as
    /// QDoubleSpinBox does, even if the value stays the same.
    ///
    /// Kept for existing callers, see docs/compatibility.md: zero-steps-go-down.
    ///
    /// Kept for existing callers, see docs/compatibility.md: step-count-not-told.
    void stepBy(int steps) override;

    /// Emitted instead of a step up.
    boost::signals2::signal<void()> signalIncrement;
    /// Emitted instead of a step down.
    boost::signals2::signal<void()> signalDecrement;

private:
    struct COMMON_UI_QT_NO_EXPORT Impl;

    /// Do nothing. Hooks for derived classes, which the library neither calls nor overrides.
    ///
    /// Kept for existing callers, see docs/compatibility.md: step-signal-hooks.
    virtual void signalIncrementConnected() const;
    virtual void signalDecrementConnected() const;

    std::unique_ptr<Impl> m_impl;
};

} // namespace ui
} // namespace zelmar
