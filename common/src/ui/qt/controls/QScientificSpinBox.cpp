#include "ui/qt/controls/QScientificSpinBox.h"

#include "ui/qt/controls/numbers/readNumber_p.h"
#include "ui/qt/controls/numbers/scientificText_p.h"
#include "ui/qt/controls/steps_p.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>

#include <cfloat>

using namespace zelmar::internal;

namespace zelmar::ui {

namespace {

constexpr int maxDecimals = 12;

/// A number of decimals beyond the maximum of QDoubleSpinBox, which then uses that maximum and rounds values as little
/// as possible.
constexpr int allDecimals = 1000;

/// Returns the validation cache of all boxes of the process.
///
/// Compatibility: shared-validation-cache
NumberReading& lastReading()
{
    static NumberReading reading;
    return reading;
}

NumberRules rulesOf(const QDoubleSpinBox& spinBox, int digits)
{
    return {spinBox.minimum(), spinBox.maximum(), digits,
            spinBox.prefix(),  spinBox.suffix(),  spinBox.specialValueText()};
}

/// A validator for each key press. It accepts what the spin box accepts, and also the beginnings of such texts: "1e",
/// and numbers that only an exponent brings into the range.
class TypingValidator : public QDoubleValidator
{
public:
    explicit TypingValidator(QDoubleSpinBox& spinBox)
        : QDoubleValidator(&spinBox)
        , m_spinBox(spinBox)
    {
        setDecimals(allDecimals);
        setNotation(QDoubleValidator::ScientificNotation);
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    State validate(QString& text, int& position) const override
    {
        // Neither the typed text nor the cursor position may change.
        int ignored = position;
        const State state = m_spinBox.validate(text, ignored);
        if (state != Invalid)
            return state;
        QString number = strippedNumber(text, ignored, rulesOf(m_spinBox, 0));
        return QDoubleValidator::validate(number, ignored) == Invalid ? Invalid : Intermediate;
    }

private:
    const QDoubleSpinBox& m_spinBox;
};

} // namespace

struct QScientificSpinBox::Impl
{
    explicit Impl(QScientificSpinBox& owner)
        : spinBox(&owner)
        , increment(&owner.signalIncrement)
        , decrement(&owner.signalDecrement)
    {
    }

    const NumberReading& read(const QString& text, int& position) const
    {
        return readNumber(text, position, rulesOf(*spinBox, decimals), lastReading());
    }

    int decimals = maxDecimals;
    QDoubleSpinBox* spinBox;
    boost::signals2::signal<void()>* increment;
    boost::signals2::signal<void()>* decrement;
};

QScientificSpinBox::QScientificSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
    , m_impl(std::make_unique<Impl>(*this))
{
    lineEdit()->setValidator(new TypingValidator(*this));
    QDoubleSpinBox::setDecimals(allDecimals);
    m_impl->decimals = 8;
    setRange(-DBL_MAX, DBL_MAX);
    setKeyboardTracking(false);
}

QScientificSpinBox::~QScientificSpinBox() = default;

int QScientificSpinBox::decimals() const
{
    return m_impl->decimals;
}

void QScientificSpinBox::setDecimals(int d)
{
    const bool showsValue = cleanText() == textFromValue(value());
    m_impl->decimals = qMin(d, maxDecimals);
    if (showsValue)
        setSuffix(suffix()); // makes the base class format the value again
}

QString QScientificSpinBox::textFromValue(double value) const
{
    return scientificText(value, m_impl->decimals);
}

double QScientificSpinBox::valueFromText(const QString& text) const
{
    int position = lineEdit()->cursorPosition();
    return m_impl->read(text, position).value;
}

QValidator::State QScientificSpinBox::validate(QString& text, int& pos) const
{
    return m_impl->read(text, pos).state;
}

void QScientificSpinBox::fixup(QString& /*text*/) const
{
}

void QScientificSpinBox::stepBy(int steps)
{
    if (!isStepTakenOver(steps, *m_impl->increment, *m_impl->decrement))
        stepTo(*this, value() + singleStep() * steps);
}

void QScientificSpinBox::signalIncrementConnected() const
{
}

void QScientificSpinBox::signalDecrementConnected() const
{
}

} // namespace zelmar::ui
