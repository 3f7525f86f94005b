#pragma once

#include <QtGlobal>

#include <cstring>

/// Returns whether two doubles are bitwise equal: 0 and -0 differ, and a NaN equals itself.
inline bool sameBits(double left, double right)
{
    quint64 leftBits = 0;
    quint64 rightBits = 0;
    std::memcpy(&leftBits, &left, sizeof left);
    std::memcpy(&rightBits, &right, sizeof right);
    return leftBits == rightBits;
}
