#include "compat/filter/TextSearch.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#define ZELMAR_HAS_SSE2
#include <emmintrin.h>
#endif

namespace zelmar {

namespace {

constexpr uint letterCount = 0x10000;
constexpr int blockLength = 8;
/// Most names have no more starts than this; looking at as many without asking costs less than asking.
constexpr int usualStarts = 5 * blockLength;
constexpr int fetchedAhead = 16;
constexpr int sampleSize = 64;

/// The case foldings of the letters of 16 bits; a surrogate folds to itself.
struct Foldings
{
    Foldings()
    {
        std::iota(nextLike.begin(), nextLike.end(), char16_t(0));
        for (uint letter = 0; letter < letterCount; ++letter) {
            const uint folded = QChar::toCaseFolded(letter);
            of[letter] = char16_t(folded);
            if (folded != letter)
                nextLike[letter] = std::exchange(nextLike[folded], char16_t(letter));
        }
    }

    std::vector<char16_t> of = std::vector<char16_t>(letterCount);
    /// The next letter of the same folding, round and round.
    std::vector<char16_t> nextLike = std::vector<char16_t>(letterCount);
};

const Foldings& foldings()
{
    static const Foldings foldings;
    return foldings;
}

/// Results are kept: few rows are not to take the room of all.
void shorten(QVector<int>& rows, int count)
{
    rows.resize(count);
    if (count < rows.capacity() / 2)
        rows.squeeze();
}

const char16_t* lettersOf(const QString& text)
{
    return reinterpret_cast<const char16_t*>(text.constData());
}

} // namespace

#ifdef ZELMAR_HAS_SSE2

namespace {

/// Has the letters of `text` brought from memory while others are looked at: a few candidates lie far apart.
void fetch(const QString& text)
{
    static_assert(sizeof(QString) == sizeof(void*),
                  "a string is a pointer to its letters with their number before them");
    const char* const letters = *reinterpret_cast<const char* const*>(&text);
    _mm_prefetch(letters, _MM_HINT_T0);
    _mm_prefetch(letters + 64, _MM_HINT_T0);
}

} // namespace

/// Tells most texts that do not contain the text, by two of its letters at all starts at once.
class TextSearch::Sieve
{
public:
    Sieve() = default;
    Sieve(const Place& one, const Place& other, bool isExact)
        : m_isThere(true)
        , m_isExact(isExact)
        , m_one(one)
        , m_other(other)
    {
    }

    bool isThere() const { return m_isThere; }
    /// Whether there are no other letters.
    bool isExact() const { return m_isExact; }

    /// A bit for each of the first 40 places in `text` where the text could start: 8 for each block of 8, the last of
    /// which begins before the end. `starts`, 8 or more, is the number of such places.
    quint64 marksIn(const char16_t* text, int starts) const
    {
        quint64 marks = 0;
        for (int block = 0; block < usualStarts; block += blockLength)
            marks |= quint64(marksAt(text + startOf(block, starts))) << block;
        return marks;
    }

    /// The first place for which `check` holds, of those that are marked and those behind; -1 when there is none.
    template <typename Check>
    int firstChecked(quint64 marks, const char16_t* text, int starts, Check check) const
    {
        for (; marks != 0; marks &= marks - 1) {
            const int bit = int(qCountTrailingZeroBits(marks));
            const int start = startOf(bit & ~(blockLength - 1), starts) + (bit & (blockLength - 1));
            if (check(text + start))
                return start;
        }
        for (int start = usualStarts; start < starts; ++start) {
            if (check(text + start))
                return start;
        }
        return -1;
    }

private:
    struct Letters
    {
        Letters() = default;
        explicit Letters(const Place& place)
            : offset(place.offset)
        {
            for (std::size_t i = 0; i < place.spellings.size(); ++i)
                spellings[i] = _mm_set1_epi16(short(place.spellings[i]));
        }

        __m128i marksAt(const char16_t* start) const
        {
            const __m128i letters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(start + offset));
            return _mm_or_si128(
                _mm_or_si128(_mm_cmpeq_epi16(letters, spellings[0]), _mm_cmpeq_epi16(letters, spellings[1])),
                _mm_or_si128(_mm_cmpeq_epi16(letters, spellings[2]), _mm_cmpeq_epi16(letters, spellings[3])));
        }

        int offset = 0;
        __m128i spellings[4] = {};
    };

    static int startOf(int block, int starts) { return std::min(block, starts - blockLength); }

    /// A bit for each of the eight places from `start` where both letters are.
    uint marksAt(const char16_t* start) const
    {
        const __m128i marks = _mm_and_si128(m_one.marksAt(start), m_other.marksAt(start));
        return uint(_mm_movemask_epi8(_mm_packs_epi16(marks, marks))) & 0xffU;
    }

    bool m_isThere = false;
    bool m_isExact = false;
    Letters m_one;
    Letters m_other;
};

#else

namespace {

void fetch(const QString&)
{
}

} // namespace

class TextSearch::Sieve
{
public:
    Sieve() = default;
    Sieve(const Place&, const Place&, bool) {}
    bool isThere() const { return false; }
    bool isExact() const { return false; }
    quint64 marksIn(const char16_t*, int) const { return 0; }
    template <typename Check>
    int firstChecked(quint64, const char16_t*, int, Check) const
    {
        return -1;
    }
};

#endif

TextSearch::TextSearch(QString text, Qt::CaseSensitivity caseSensitivity)
    : m_text(std::move(text))
    , m_caseSensitivity(caseSensitivity)
{
    const bool ignoresCase = caseSensitivity == Qt::CaseInsensitive;
    // The halves of a surrogate pair fold together.
    if (ignoresCase && std::any_of(m_text.cbegin(), m_text.cend(), [](QChar letter) { return letter.isSurrogate(); }))
        return;
    for (const QChar letter : qAsConst(m_text))
        m_letters.append(ignoresCase ? foldings().of[letter.unicode()] : letter.unicode());
}

/// Nothing where more letters count as the same than fit.
std::optional<TextSearch::Place> TextSearch::placeAt(int offset) const
{
    const char16_t letter = m_text.at(offset).unicode();
    Place place{offset, {letter, letter, letter, letter}};
    if (m_caseSensitivity == Qt::CaseSensitive)
        return place;
    std::size_t count = 1;
    for (char16_t other = foldings().nextLike[letter]; other != letter; other = foldings().nextLike[other]) {
        if (count == place.spellings.size())
            return std::nullopt;
        place.spellings[count++] = other;
    }
    return place;
}

/// The offsets of the letters that fold for themselves, those first that few of a sample of `texts` have.
QVector<int> TextSearch::placesByRarity(const QVector<QString>& texts) const
{
    QVector<int> uses(m_text.size(), 0);
    QVector<int> offsets;
    for (int offset = 0; offset < m_text.size(); ++offset) {
        if (m_text.at(offset).isLowSurrogate())
            continue;
        offsets.append(offset);
        for (int i = 0; i < qMin(texts.size(), sampleSize); ++i)
            uses[offset] +=
                texts.at(int(qint64(i) * texts.size() / sampleSize)).contains(m_text.at(offset), m_caseSensitivity);
    }
    std::stable_sort(offsets.begin(), offsets.end(), [&uses](int one, int other) { return uses[one] < uses[other]; });
    return offsets;
}

TextSearch::Sieve TextSearch::sieveFor(const QVector<QString>& texts) const
{
    const QVector<int> offsets = placesByRarity(texts);
    if (offsets.isEmpty())
        return {};
    const auto one = placeAt(offsets.first());
    const auto other = placeAt(offsets.value(1, offsets.first()));
    if (!one || !other)
        return {};
    return {*one, *other, m_letters.size() == offsets.size() && offsets.size() <= 2};
}

inline bool TextSearch::standsAt(const char16_t* start) const
{
    if (m_caseSensitivity == Qt::CaseSensitive)
        return std::equal(m_letters.begin(), m_letters.end(), start);
    const char16_t* const folding = foldings().of.data();
    return std::equal(m_letters.begin(), m_letters.end(), start,
                      [folding](char16_t folded, char16_t letter) { return folded == folding[letter]; });
}

inline bool TextSearch::isIn(const QString& text, const Sieve& sieve) const
{
    const int starts = text.size() - m_text.size() + 1;
    if (starts <= 0)
        return false;
    if (!sieve.isThere() || starts < blockLength)
        return text.contains(m_text, m_caseSensitivity);
    const quint64 marks = sieve.marksIn(lettersOf(text), starts);
    if (starts <= usualStarts) {
        // Without a jump that depends on the answer, which the processor could only guess.
        if (sieve.isExact())
            return marks != 0;
        if (marks == 0)
            return false;
    }
    return startAtMarks(marks, text, starts, sieve) >= 0;
}

int TextSearch::startAtMarks(quint64 marks, const QString& text, int starts, const Sieve& sieve) const
{
    if (m_letters.isEmpty())
        return text.indexOf(m_text, 0, m_caseSensitivity);
    return sieve.firstChecked(marks, lettersOf(text), starts,
                              [this](const char16_t* start) { return standsAt(start); });
}

/// Where it stands in `text`, perhaps at `likelyStart`; -1 for nowhere.
inline int TextSearch::startIn(const QString& text, const Sieve& sieve, int likelyStart) const
{
    const int starts = text.size() - m_text.size() + 1;
    if (likelyStart >= 0 && likelyStart < starts && !m_letters.isEmpty() && standsAt(lettersOf(text) + likelyStart))
        return likelyStart;
    if (!sieve.isThere() || starts < blockLength)
        return text.indexOf(m_text, 0, m_caseSensitivity);
    const quint64 marks = sieve.marksIn(lettersOf(text), starts);
    return marks == 0 && starts <= usualStarts ? -1 : startAtMarks(marks, text, starts, sieve);
}

int TextSearch::firstIn(const QVector<QString>& texts) const
{
    const Sieve sieve = sieveFor(texts);
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const QString& text) { return isIn(text, sieve); });
    return found == texts.end() ? -1 : int(found - texts.begin());
}

TextSearch::Found TextSearch::allIn(const QVector<QString>& texts, int first, int end) const
{
    const Sieve sieve = sieveFor(texts);
    QVector<int> rows(end - first);
    int* next = rows.data();
    for (int i = first; i < end; ++i) {
        *next = i;
        next += isIn(texts.at(i), sieve);
    }
    shorten(rows, int(next - rows.data()));
    return {rows, {}};
}

TextSearch::Found TextSearch::allAmong(const Found& candidates, const QVector<QString>& texts) const
{
    const Sieve sieve = sieveFor(texts);
    const int count = candidates.rows.size();
    // Where the sieve says it all, nobody needs to know the place.
    const bool notesStarts = !sieve.isExact();
    Found found{QVector<int>(count), QVector<int>(notesStarts ? count : 0)};
    int* const rows = found.rows.data();
    int* const starts = found.starts.data();
    int foundCount = 0;
    for (int c = 0; c < count; ++c) {
        if (c + fetchedAhead < count)
            fetch(texts.at(candidates.rows.at(c + fetchedAhead)));
        const int row = candidates.rows.at(c);
        rows[foundCount] = row;
        if (notesStarts) {
            const int start = startIn(texts.at(row), sieve, candidates.starts.isEmpty() ? -1 : candidates.starts.at(c));
            starts[foundCount] = start;
            foundCount += start >= 0;
        } else {
            foundCount += isIn(texts.at(row), sieve);
        }
    }
    shorten(found.rows, foundCount);
    shorten(found.starts, notesStarts ? foundCount : 0);
    return found;
}

} // namespace zelmar
