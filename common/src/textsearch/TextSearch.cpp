#include "textsearch/TextSearch_p.h"

#include "qtVersion_p.h"

#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <utility>

namespace zelmar::internal {

namespace {

/// The number of rows by which prefetching is ahead of the search.
constexpr int prefetchDistance = 32;
/// The number of candidates that are prefiltered before the survivors among them are verified. It is so small that the
/// texts of a block are still in the processor's cache then.
constexpr int blockSize = 32;
/// Stands for the candidate positions in a haystack that contains the needle at unknown positions.
constexpr quint64 somewhere = ~quint64(0);

const char16_t* unitsOf(QStringView text)
{
    return reinterpret_cast<const char16_t*>(text.data());
}

/// Makes the processor load the beginning of the text's data in the background.
void prefetch(const QString& text)
{
#ifdef ZELMAR_TEXTSEARCH_SSE2
    const char* const data = static_cast<const char*>(addressOfText(text));
    _mm_prefetch(data, _MM_HINT_T0);
    _mm_prefetch(data + 64, _MM_HINT_T0);
#else
    Q_UNUSED(text)
#endif
}

} // namespace

TextSearch::TextSearch(QString text, Qt::CaseSensitivity caseSensitivity)
    : m_text(std::move(text))
    , m_caseSensitivity(caseSensitivity)
    , m_folding(caseSensitivity)
{
    // Case folding maps a surrogate pair as a whole, so QString has to compare such a needle.
    if (m_text.isEmpty()
        || (caseSensitivity == Qt::CaseInsensitive
            && std::any_of(m_text.cbegin(), m_text.cend(), [](QChar unit) { return unit.isSurrogate(); })))
        return;
    for (const QChar unit : qAsConst(m_text))
        m_units.append(m_folding(unit.unicode()));
    // The last two code units are the most selective: the candidates of allAmong() usually contain the others.
    const int last = int(m_text.size()) - 1;
    const int secondToLast = std::max(last - 1, 0);
    const auto patternAt = [this](int offset) { return UnitPattern(m_folding.equivalentsOf(m_units.at(offset))); };
    m_prefilter = Prefilter(secondToLast, patternAt(secondToLast), last, patternAt(last));
    m_isPrefilterEnough = m_text.size() <= 2 && m_prefilter.isExact();
}

qint64 TextSearch::Found::byteCount() const
{
    return rows.size() * qint64(sizeof(int)) + following.size() * qint64(sizeof(FollowingUnits))
           + lookAheads.size() * qint64(sizeof(LookAhead));
}

void TextSearch::Found::forgetLookAheads()
{
    following.clear();
    lookAheads.clear();
}

inline bool TextSearch::matchesAt(const char16_t* position) const
{
    return std::equal(m_units.begin(), m_units.end(), position,
                      [this](char16_t folded, char16_t unit) { return folded == m_folding(unit); });
}

/// Returns whether the needle occurs at any of the candidate positions. This function is not inline, because it would
/// use registers that the prefilter needs in the loops over all rows.
bool TextSearch::anyMatches(const char16_t* haystack, quint64 positions) const
{
    for (; positions != 0; positions &= positions - 1) {
        if (matchesAt(haystack + qCountTrailingZeroBits(positions)))
            return true;
    }
    return false;
}

/// Returns a bit mask of the positions at which the needle may occur, or `somewhere`. Sets `following`, if given,
/// unless the positions are not known.
template <typename... Following>
inline quint64 TextSearch::candidatePositions(QStringView haystack, Following&... following) const
{
    const int count = int(haystack.size() - m_units.size()) + 1;
    if (count >= Prefilter::maxPositions || m_units.isEmpty())
        return containsAnywhere(haystack) ? somewhere : 0;
    return count > 0 ? m_prefilter.candidates(unitsOf(haystack), count, following...) : 0;
}

/// Returns whether the haystack contains the needle. Accepts haystacks of any length and every needle.
bool TextSearch::containsAnywhere(QStringView haystack) const
{
    if (m_units.isEmpty())
        return haystack.contains(m_text, m_caseSensitivity);
    const int count = int(haystack.size() - m_units.size()) + 1;
    for (int first = 0; first < count; first += Prefilter::maxPositions) {
        const char16_t* const window = unitsOf(haystack) + first;
        if (anyMatches(window, m_prefilter.candidates(window, std::min(count - first, Prefilter::maxPositions))))
            return true;
    }
    return false;
}

/// Returns whether the needle occurs at any of the candidate positions.
inline bool TextSearch::containsAt(QStringView haystack, quint64 positions) const
{
    // Most haystacks are decided here. If the prefilter is enough, there is no branch on its result.
    if (m_isPrefilterEnough || positions == 0)
        return positions != 0;
    return positions == somewhere || anyMatches(unitsOf(haystack), positions);
}

/// Returns whether the needle occurs at any of the candidate positions, of which there is at least one. Sets
/// `lookAhead` if there is exactly one.
inline bool TextSearch::verify(QStringView haystack, quint64 positions, int lookAheadStart, LookAhead& lookAhead) const
{
    const bool isOnlyOne = (positions & (positions - 1)) == 0;
    if (isOnlyOne)
        lookAhead = LookAhead(haystack, int(qCountTrailingZeroBits(positions)) + lookAheadStart);
    return m_isPrefilterEnough || positions == somewhere || anyMatches(unitsOf(haystack), positions);
}

int TextSearch::firstIn(const QStringList& texts) const
{
    const auto text = texts.cbegin();
    for (int row = 0; row < texts.size(); ++row) {
        prefetch(text[std::min(row + prefetchDistance, int(texts.size()) - 1)]);
        if (containsAt(text[row], candidatePositions(text[row])))
            return row;
    }
    return -1;
}

TextSearch::Found TextSearch::allIn(const QStringList& texts, int first, int end) const
{
    const auto text = texts.cbegin();
    Found found{m_text, QVector<int>(end - first), QVector<FollowingUnits>(end - first), {}, 0};
    int* const rows = found.rows.data();
    FollowingUnits* const following = found.following.data();
    int count = 0;
    for (int row = first; row < end; ++row) {
        prefetch(text[std::min(row + prefetchDistance, end - 1)]);
        // The next row overwrites these unless they are counted.
        rows[count] = row;
        following[count] = {};
        count += containsAt(text[row], candidatePositions(text[row], following[count]));
    }
    found.rows.resize(count);
    found.rows.squeeze();
    found.following.resize(count);
    found.following.squeeze();
    return found;
}

/// The candidates of a block that have passed the prefilter or the look-ahead filter.
struct TextSearch::Survivors
{
    std::array<int, blockSize> candidates; ///< indexes into the rows
    std::array<quint64, blockSize> positions;
    int count = 0;
};

TextSearch::Found TextSearch::allAmong(const Found& candidates, const QStringList& texts) const
{
    const LookAheadFilter filter = filterFor(candidates);
    const QVector<int> rows = possibleAmong(candidates);
    Found found{m_text, {}, {}, {}, filter.start()};
    found.rows.reserve(rows.size());
    found.lookAheads.reserve(rows.size());
    Survivors survivors;
    for (int first = 0; first < rows.size(); first += blockSize) {
        prefilterBlock(survivors, rows, first, texts, filter);
        verifyBlock(survivors, rows, texts, filter, found);
    }
    found.rows.squeeze();
    found.lookAheads.squeeze();
    return found;
}

/// Returns whether the needle starts with the needle of `candidates` and is longer.
bool TextSearch::continues(const Found& candidates) const
{
    return m_units.size() > candidates.needle.size() && m_text.startsWith(candidates.needle, m_caseSensitivity);
}

/// Returns the rows of the candidates without most of those in which the next code unit of this needle follows no
/// occurrence of theirs.
QVector<int> TextSearch::possibleAmong(const Found& candidates) const
{
    if (candidates.following.isEmpty() || !continues(candidates))
        return candidates.rows;
    const UnitPattern next(m_folding.equivalentsOf(m_units.at(candidates.needle.size())));
    QVector<int> rows(candidates.rows.size());
    int* possible = rows.data();
    for (int i = 0; i < rows.size(); ++i) {
        *possible = candidates.rows.at(i); // The next row overwrites it unless it is counted.
        possible += candidates.following.at(i).mayMatch(next);
    }
    rows.resize(int(possible - rows.constData()));
    return rows;
}

LookAheadFilter TextSearch::filterFor(const Found& candidates) const
{
    const bool isUsable = !candidates.lookAheads.isEmpty() && continues(candidates)
                          && m_units.size() <= candidates.lookAheadStart + LookAhead::capacity;
    if (!isUsable)
        return {int(m_text.size()), m_folding};
    return {candidates.lookAheads, candidates.lookAheadStart, m_units, int(candidates.needle.size()), m_folding};
}

inline void TextSearch::prefilterBlock(Survivors& survivors, const QVector<int>& rows, int first,
                                       const QStringList& texts, const LookAheadFilter& filter) const
{
    const auto text = texts.cbegin();
    const int rowCount = int(rows.size());
    survivors.count = 0;
    for (int candidate = first; candidate < std::min(first + blockSize, rowCount); ++candidate) {
        const int ahead = std::min(candidate + prefetchDistance, rowCount - 1);
        if (!filter.decides(ahead))
            prefetch(text[rows.at(ahead)]);
        const quint64 positions = filter.decides(candidate) ? quint64(filter.accepts(candidate))
                                                            : candidatePositions(text[rows.at(candidate)]);
        // The next candidate overwrites it unless it is counted. A branch would be mispredicted too often.
        survivors.candidates[std::size_t(survivors.count)] = candidate;
        survivors.positions[std::size_t(survivors.count)] = positions;
        survivors.count += positions != 0;
    }
}

inline void TextSearch::verifyBlock(const Survivors& survivors, const QVector<int>& rows, const QStringList& texts,
                                    const LookAheadFilter& filter, Found& found) const
{
    for (std::size_t i = 0; i < std::size_t(survivors.count); ++i) {
        const int candidate = survivors.candidates[i];
        const int row = rows.at(candidate);
        LookAhead lookAhead;
        if (filter.decides(candidate))
            lookAhead = filter.lookAhead(candidate);
        else if (!verify(texts.at(row), survivors.positions[i], filter.start(), lookAhead))
            continue;
        found.rows.append(row);
        found.lookAheads.append(lookAhead);
    }
}

} // namespace zelmar::internal
