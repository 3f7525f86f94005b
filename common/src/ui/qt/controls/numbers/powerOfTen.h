#pragma once

#include <QtGlobal>

/// 10 raised to `exponent`, at most 18; 1 when that is below 1.
constexpr qint64 powerOfTen(int exponent)
{
    qint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}
