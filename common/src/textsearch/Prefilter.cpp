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

/// Searches a haystack that is too short for vectors. Not inline, because it would use registers that the others need.
quint64 Prefilter::candidatesInShort(const char16_t* haystack, int count) const
{
    return candidates(haystack, count);
}

} // namespace zelmar::internal
