#pragma once

#include <QtGlobal>

#include <cstring>

/// Whether two doubles are the same one: 0 and -0 are not, and a NaN is the same as itself.
inline bool sameBits(double left, double right)
{
    quint64 leftBits = 0;
    quint64 rightBits = 0;
    std::memcpy(&leftBits, &left, sizeof left);
    std::memcpy(&rightBits, &right, sizeof right);
    return leftBits == rightBits;
}
