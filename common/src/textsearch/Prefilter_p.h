#pragma once

#include "internal_export_p.h"

#include <QtGlobal>

#include <algorithm>
#include <vector>

// ZELMAR_TEXTSEARCH_PORTABLE disables the vector instructions, so that tests can run both variants.
#if !defined(ZELMAR_TEXTSEARCH_PORTABLE) && (defined(__SSE2__) || defined(_M_X64))
#define ZELMAR_TEXTSEARCH_SSE2
#include <emmintrin.h>
#endif

namespace zelmar::internal {

/// The set of all code units whose bits in `mask` are those of `value`.
struct COMMON_UI_QT_INTERNAL_EXPORT UnitPattern
{
    UnitPattern() = default;
    /// Constructs the smallest such set that contains all of `units`, which must not be empty or contain duplicates.
    explicit UnitPattern(const std::vector<char16_t>& units);

    bool matches(char16_t unit) const { return (unit & mask) == value; }

    char16_t mask = 0;
    char16_t value = 0;
    bool isExact = false; ///< whether the set contains only the code units from which it was constructed
};

/// The bits of the code units that follow the candidate positions of a needle. They exclude many longer needles. A
/// default-constructed object excludes none.
struct FollowingUnits
{
    /// Returns whether a code unit that matches `pattern` may be among the following ones.
    bool mayMatch(const UnitPattern& pattern) const
    {
        return ((pattern.value & ~inAny) | (inAll & ~pattern.value & pattern.mask)) == 0;
    }

    char16_t inAny = 0xffff; ///< the bits that are set in at least one of the code units
    char16_t inAll = 0;      ///< the bits that are set in all of them
};

/// A prefilter that finds the candidate positions of a needle in a haystack. It compares two code units of the needle
/// at many positions at once. Most haystacks have no candidate, and are excluded without a branch on their code units,
/// which the processor would often mispredict.
class Prefilter
{
public:
    /// The maximum number of positions for one call of candidates(), which is the number of bits of its result.
    static constexpr int maxPositions = 64;

    Prefilter() = default;
    /// Constructs a prefilter from the patterns of two code units of the needle and their offsets in it.
    Prefilter(int firstOffset, const UnitPattern& first, int secondOffset, const UnitPattern& second)
        : m_firstOffset(firstOffset)
        , m_secondOffset(secondOffset)
        , m_first(first)
        , m_second(second)
        , m_isSecondEnough(firstOffset == secondOffset && first.mask == second.mask && first.value == second.value)
    {
    }

    /// Returns whether both patterns are exact, so that each candidate matches the needle in these two code units.
    bool isExact() const { return m_first.isExact && m_second.isExact; }

    /// Returns a bit mask of the positions below `count` at which both patterns match; bit 0 is the start of
    /// `haystack`. `count` is at most maxPositions. Reads the haystack up to the last position plus the larger offset.
    quint64 candidates(const char16_t* haystack, int count) const;
    /// Does the same for a `count` of at least 1. Also sets `following` to the code units that follow the needle at the
    /// candidates before the last position. The second offset must be the needle's last.
    quint64 candidates(const char16_t* haystack, int count, FollowingUnits& following) const;

private:
    quint64 candidatesOneByOne(const char16_t* haystack, int count) const;
    /// It is not inline, because it would use registers that the vectors need.
    COMMON_UI_QT_INTERNAL_EXPORT quint64 candidatesOneByOne(const char16_t* haystack, int count,
                                                            FollowingUnits& following) const;
#ifdef ZELMAR_TEXTSEARCH_SSE2
    static constexpr int blockSize = 8;
    __m128i matchesInBlock(const char16_t* block) const;
    static __m128i matchesInBlock(const char16_t* block, const UnitPattern& pattern);
    static __m128i load(const char16_t* block);
    static quint64 bitsOf(__m128i matches);
#endif

    int m_firstOffset = 0;
    int m_secondOffset = 0;
    UnitPattern m_first;
    UnitPattern m_second;
    bool m_isSecondEnough = false; ///< whether the needle has only one code unit, so that both patterns are the same
};

inline quint64 Prefilter::candidatesOneByOne(const char16_t* haystack, int count) const
{
    quint64 candidates = 0;
    for (int position = 0; position < count; ++position) {
        // Always compares both code units, because a branch would cost more than the second comparison.
        const quint64 first = m_first.matches(haystack[position + m_firstOffset]) ? 1 : 0;
        const quint64 second = m_second.matches(haystack[position + m_secondOffset]) ? 1 : 0;
        candidates |= (first & second) << position;
    }
    return candidates;
}

#ifdef ZELMAR_TEXTSEARCH_SSE2

inline __m128i Prefilter::load(const char16_t* block)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
}

/// Returns a vector whose lanes are all ones for each code unit of the block that matches.
inline __m128i Prefilter::matchesInBlock(const char16_t* block, const UnitPattern& pattern)
{
    return _mm_cmpeq_epi16(_mm_and_si128(load(block), _mm_set1_epi16(short(pattern.mask))),
                           _mm_set1_epi16(short(pattern.value)));
}

/// Returns a vector whose lanes are all ones for each position of the block at which both patterns match.
inline __m128i Prefilter::matchesInBlock(const char16_t* block) const
{
    const __m128i matches = matchesInBlock(block + m_secondOffset, m_second);
    return m_isSecondEnough ? matches : _mm_and_si128(matches, matchesInBlock(block + m_firstOffset, m_first));
}

/// Returns a bit for each lane.
inline quint64 Prefilter::bitsOf(__m128i matches)
{
    return uint(_mm_movemask_epi8(_mm_packs_epi16(matches, _mm_setzero_si128())));
}

inline quint64 Prefilter::candidates(const char16_t* haystack, int count) const
{
    if (count < blockSize)
        return candidatesOneByOne(haystack, count);
    quint64 candidates = 0;
    for (int block = 0; block < count; block += blockSize) {
        // The last block overlaps the previous one, so that it does not extend beyond the haystack.
        const int position = std::min(block, count - blockSize);
        candidates |= bitsOf(matchesInBlock(haystack + position)) << position;
    }
    return candidates;
}

inline quint64 Prefilter::candidates(const char16_t* haystack, int count, FollowingUnits& following) const
{
    const int followed = count - 1; // At the last position, the needle may end where the haystack ends.
    if (followed < blockSize)
        return candidatesOneByOne(haystack, count, following);
    __m128i inAny = _mm_setzero_si128();
    __m128i lacking = _mm_setzero_si128();
    quint64 candidates = bitsOf(matchesInBlock(haystack + count - blockSize)) << (count - blockSize);
    for (int block = 0; block < followed; block += blockSize) {
        const int position = std::min(block, followed - blockSize);
        const __m128i matches = matchesInBlock(haystack + position);
        const __m128i units = load(haystack + position + m_secondOffset + 1);
        inAny = _mm_or_si128(inAny, _mm_and_si128(matches, units));
        lacking = _mm_or_si128(lacking, _mm_andnot_si128(units, matches));
        candidates |= bitsOf(matches) << position;
    }
    // Combines the lanes of both vectors at once.
    __m128i lanes = _mm_or_si128(_mm_unpacklo_epi16(inAny, lacking), _mm_unpackhi_epi16(inAny, lacking));
    lanes = _mm_or_si128(lanes, _mm_srli_si128(lanes, 8));
    lanes = _mm_or_si128(lanes, _mm_srli_si128(lanes, 4));
    const auto both = uint(_mm_cvtsi128_si32(lanes));
    following.inAny = char16_t(both);
    following.inAll = char16_t(~(both >> 16));
    return candidates;
}

#else

inline quint64 Prefilter::candidates(const char16_t* haystack, int count) const
{
    return candidatesOneByOne(haystack, count);
}

inline quint64 Prefilter::candidates(const char16_t* haystack, int count, FollowingUnits& following) const
{
    return candidatesOneByOne(haystack, count, following);
}

#endif

} // namespace zelmar::internal
