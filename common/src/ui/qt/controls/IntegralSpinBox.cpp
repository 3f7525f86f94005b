#include "ui/qt/controls/IntegralSpinBox.h"

#include "ui/qt/controls/steps_p.h"

using namespace zelmar::internal;

namespace zelmar::ui {

struct IntegralSpinBox::Impl
{
    QSpinBox* spinBox;
    boost::signals2::signal<void()>* increment;
    boost::signals2::signal<void()>* decrement;

    /// Returns the value after `steps` steps. Computes it in 64 bits, which cannot overflow, and bounds it to the
    /// range, because setValue() may wrap values beyond it.
    int valueAfter(int steps) const
    {
        const qint64 sum = spinBox->value() + qint64(spinBox->singleStep()) * steps;
        return int(qBound(qint64(spinBox->minimum()), sum, qint64(spinBox->maximum())));
    }
};

IntegralSpinBox::IntegralSpinBox(QWidget* parent)
    : QSpinBox(parent)
    , m_impl(new Impl{this, &signalIncrement, &signalDecrement})
{
    setKeyboardTracking(false);
}

IntegralSpinBox::~IntegralSpinBox() = default;

void IntegralSpinBox::stepBy(int steps)
{
    if (!isStepTakenOver(steps, *m_impl->increment, *m_impl->decrement))
        stepTo(*this, m_impl->valueAfter(steps));
}

void IntegralSpinBox::signalIncrementConnected() const
{
}

void IntegralSpinBox::signalDecrementConnected() const
{
}

} // namespace zelmar::ui
