#pragma once

#include "common_ui_qt_export.h"

#include <boost/signals2/signal.hpp>

#include <QDoubleSpinBox>
#include <QString>
#include <QValidator>

#include <memory>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A spin box for any double, in scientific notation where a number is long: 1.5E-07. The shown text is rounded to a
/// number of significant digits; the value is not, as long as nobody commits that text. Steps may be taken over by the
/// application, as in IntegralSpinBox.
///
///     auto* flow = new zelmar::ui::QScientificSpinBox(window);
///     flow->setDecimals(4);
///     flow->setSuffix(" mol/s");
///     flow->signalIncrement.connect([=] { flow->setValue(flow->value() * 10); });
///     connect(flow, SIGNAL(valueChanged(double)), this, SLOT(setFlow(double)));
///
/// The decimal point is "." and digits are grouped by ",", shown and typed, whatever the locale of user, widget and C
/// library is. The range is that of a double at first, and the value changes when editing finishes (Return, focus
/// loss), not with each key: keyboard tracking is off.
///
/// What is typed:
/// - Text that cannot become a number is refused. A number outside the range can be typed, because a longer one may lie
///   inside ("5" on the way to "5e-3"), but is not taken: the field goes back to its value.
/// - "1,234" is 1234. "1,23" may be meant as a decimal fraction: it stays as it is typed and is not taken, neither as
///   1.23 nor as 123.
///
/// Known traps:
/// - decimals() and setDecimals() hide those of QDoubleSpinBox, which are not virtual: called through a QDoubleSpinBox,
///   and set as the property "decimals", they round the value to digits behind the point and leave the shown digits
///   alone.
/// - Return commits the text that is shown, also when nothing was typed: the value then is the rounded one. Moving the
///   focus away does not.
/// - All fields share the reading of the text that was validated last, by any of them: the same text gets the same
///   answer right after that, whatever the other field's range is, and "123" is not taken right after "1,23", which is
///   kept without its comma.
/// - setValue() keeps 323 digits behind the point, the most that Qt offers: what is below 1E-307 loses its last bits,
///   and -0 is 0. Infinities are the bounds of the range.
/// - A step starts from value(), not from a number that was typed and is not committed yet: it replaces it. A slot that
///   wants that number calls interpretText() first.
/// - At a bound of the range Qt offers no further step in that direction, so nothing is emitted there.
///
/// GUI thread only. Slots run on it, within the step.
class COMMON_UI_QT_EXPORT QScientificSpinBox : public QDoubleSpinBox
{
public:
    /// 0, with 8 digits.
    explicit QScientificSpinBox(QWidget* parent = nullptr);
    ~QScientificSpinBox() override;

    /// The number of significant digits that are shown at most, as it was set.
    int decimals() const;

    /// Shows up to `d` significant digits: above 12 it is 12; 0 shows one digit, a negative number six. The value
    /// stays as it is. A text that the user is typing stays, too.
    void setDecimals(int d);

    /// The text for `value`, without prefix and suffix.
    QString textFromValue(double value) const override;

    /// The number that `text` stands for. A text that is not acceptable gives the minimum if the maximum is above 0,
    /// and the maximum otherwise.
    double valueFromText(const QString& text) const override;

    /// Whether `text` is a number in the range (Acceptable), may become one (Intermediate), or not. `text` is never
    /// changed; `pos`, the cursor in it, moves by white space and "," in front of it that do not count.
    QValidator::State validate(QString& text, int& pos) const override;

    /// Leaves `text` alone: the base class takes out the locale's group separators, and makes 15 of "1.5" in German.
    void fixup(QString& text) const override;

    /// `steps` from 1 on emits signalIncrement, any other (0 included) signalDecrement, once and whatever the number
    /// is, if anything is connected to it. Otherwise adds `steps` times the single step to the value.
    void stepBy(int steps) override;

    /// Emitted in place of a step up.
    boost::signals2::signal<void()> signalIncrement;
    /// Emitted in place of a step down.
    boost::signals2::signal<void()> signalDecrement;

private:
    struct Impl;

    /// For derived classes; do nothing, and nothing here calls them.
    virtual void signalIncrementConnected() const;
    virtual void signalDecrementConnected() const;

    std::unique_ptr<Impl> m_impl;
};

} // namespace ui
} // namespace zelmar
