#pragma once

#include <boost/signals2/signal.hpp>

#include <QPointer>

namespace zelmar::internal {

/// Emits the signal for the direction of a step if a slot is connected to it, and returns whether one was. `increment`
/// is the signal for `steps` >= 1, and `decrement` is the signal otherwise.
///
/// Compatibility: zero-steps-go-down, step-count-not-told
inline bool isStepTakenOver(int steps, const boost::signals2::signal<void()>& increment,
                            const boost::signals2::signal<void()>& decrement)
{
    const auto& signal = steps >= 1 ? increment : decrement;
    if (signal.empty())
        return false;
    // A slot may delete the spin box and thus the signal. A slot_type locks the signal that it calls, which therefore
    // lives until the emission has returned.
    const boost::signals2::signal<void()>::slot_type emission(signal);
    emission();
    return true;
}

/// Sets `value` and selects the number, as QAbstractSpinBox::stepBy() does, so that the next typed digit replaces it. A
/// slot connected to valueChanged() may delete the spin box.
template <typename SpinBox, typename Value>
void stepTo(SpinBox& spinBox, Value value)
{
    const QPointer<SpinBox> guarded(&spinBox);
    spinBox.setValue(value);
    if (guarded)
        guarded->selectAll();
}

} // namespace zelmar::internal
