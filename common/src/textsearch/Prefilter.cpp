#include "textsearch/Prefilter_p.h"

#include <QtAlgorithms>

#include <functional>
#include <numeric>

namespace zelmar::internal {

UnitPattern::UnitPattern(const std::vector<char16_t>& units)
{
    const char16_t any = std::accumulate(units.begin(), units.end(), char16_t(0), std::bit_or<>());
    const char16_t all = std::accumulate(units.begin(), units.end(), char16_t(0xffff), std::bit_and<>());
    const auto differing = quint16(any ^ all);
    mask = char16_t(~differing);
    value = all;
    isExact = units.size() == std::size_t(1) << qPopulationCount(differing);
}

quint64 Prefilter::candidatesOneByOne(const char16_t* haystack, int count, FollowingUnits& following) const
{
    const quint64 candidates = candidatesOneByOne(haystack, count);
    following = {0, 0xffff};
    const quint64 last = quint64(1) << (count - 1); // where the needle may end at the end of the haystack
    for (quint64 rest = candidates & ~last; rest != 0; rest &= rest - 1) {
        const char16_t unit = haystack[int(qCountTrailingZeroBits(rest)) + m_secondOffset + 1];
        following.inAny |= unit;
        following.inAll &= unit;
    }
    return candidates;
}

} // namespace zelmar::internal
