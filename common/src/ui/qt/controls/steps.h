#pragma once

#include <boost/signals2/signal.hpp>

/// Gives a step of a spin box to the application, where it has connected something to the signal for its direction: up
/// from 1 on, down otherwise, 0 included. Whether it was given away. The number of steps is not told on purpose: a page
/// is one step for those who take steps over.
inline bool isStepTakenOver(int steps, const boost::signals2::signal<void()>& increment,
                            const boost::signals2::signal<void()>& decrement)
{
    const auto& signal = steps >= 1 ? increment : decrement;
    if (signal.empty())
        return false;
    signal();
    return true;
}
