#pragma once

#include <QtGlobal>

namespace zelmar::internal {

/// Returns 10 raised to `exponent`, which must be at most 18. Returns 1 for an exponent below 1.
constexpr qint64 powerOfTen(int exponent)
{
    qint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

} // namespace zelmar::internal
