#pragma once

#include "textsearch/CaseFolding_p.h"

#include <QStringView>
#include <QVector>

#include <algorithm>
#include <array>

namespace zelmar::internal {

/// The code units that follow the only occurrence of a needle's beginning in a haystack. They decide whether the
/// haystack contains a longer needle without reading the haystack again.
struct LookAhead
{
    static constexpr int capacity = 7;

    LookAhead() = default;
    /// Stores the code units of `haystack` from index `start` on, at most `capacity` of them. `start` is at most the
    /// size of the haystack.
    LookAhead(QStringView haystack, int start)
        : count(qint16(std::min(int(haystack.size()) - start, capacity)))
    {
        std::copy_n(reinterpret_cast<const char16_t*>(haystack.data()) + start, count, units.begin());
    }

    /// Returns false for a default-constructed look-ahead, which stands for a haystack that has several occurrences.
    bool isKnown() const { return count >= 0; }

    std::array<char16_t, capacity> units;
    qint16 count = -1; ///< less than `capacity` if the haystack ends earlier; -1 if nothing is stored
};

/// A filter that decides by the look-aheads of a former search which of its results contain a longer needle.
class LookAheadFilter
{
public:
    /// Constructs a filter that decides nothing. New look-aheads start at offset `start` of the needle.
    LookAheadFilter(int start, const CaseFolding& folding)
        : m_folding(folding)
        , m_start(start)
    {
    }
    /// Constructs a filter from `lookAheads`, indexed by candidate, which start at offset `start` of `needle`. The
    /// first `knownLength` code units of the needle are known to occur in every candidate. `needle` must be folded and
    /// have at most start + LookAhead::capacity code units. Both containers must outlive the filter.
    LookAheadFilter(const QVector<LookAhead>& lookAheads, int start, const QVector<char16_t>& needle, int knownLength,
                    const CaseFolding& folding)
        : m_folding(folding)
        , m_lookAheads(lookAheads.constData())
        , m_start(start)
        , m_newUnits(needle.constData() + knownLength)
        , m_firstNew(knownLength - start)
        , m_needed(needle.size() - start)
    {
    }

    /// Returns the offset in the needle at which the look-aheads start.
    int start() const { return m_start; }

    /// Returns whether the candidate has a look-ahead, so that accepts() may be called.
    bool decides(int candidate) const { return m_lookAheads && m_lookAheads[candidate].isKnown(); }

    /// Returns whether the candidate contains the needle. decides() must be true for the candidate.
    bool accepts(int candidate) const
    {
        const LookAhead& lookAhead = m_lookAheads[candidate];
        return lookAhead.count >= m_needed
               && std::equal(lookAhead.units.begin() + m_firstNew, lookAhead.units.begin() + m_needed, m_newUnits,
                             [this](char16_t unit, char16_t folded) { return m_folding(unit) == folded; });
    }

    const LookAhead& lookAhead(int candidate) const { return m_lookAheads[candidate]; }

private:
    CaseFolding m_folding;
    const LookAhead* m_lookAheads = nullptr;
    int m_start;
    const char16_t* m_newUnits = nullptr;
    int m_firstNew = 0;
    int m_needed = 0;
};

} // namespace zelmar::internal
