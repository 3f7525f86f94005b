#include "compat/filter/TextSearch.h"

#include <algorithm>
#include <functional>
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
constexpr int followedStarts = 5 * blockLength;
constexpr int usualStarts = followedStarts + 1;
constexpr int fetchedAhead = 32;
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
template <typename T>
void shorten(QVector<T>& results, int count)
{
    results.resize(count);
    if (count < results.capacity() / 2)
        results.squeeze();
}

int countOf(int bits)
{
    return int(qPopulationCount(quint16(bits)));
}

const char16_t* lettersOf(const QString& text)
{
    return reinterpret_cast<const char16_t*>(text.constData());
}

} // namespace

#ifdef ZELMAR_HAS_SSE2

namespace {

/// Has the letters of `text` brought from memory while others are looked at.
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
    Sieve(const Place& one, const Place& other, int length, bool isExact)
        : m_length(length)
        , m_isExact(isExact)
        , m_one(one)
        , m_other(other)
    {
    }

    /// Whether it can be used for a text with so many places where the text could start.
    bool isFor(int starts) const { return m_length > 0 && starts > blockLength; }
    /// Whether there are no other letters.
    bool isExact() const { return m_isExact; }

    /// A bit for each of the first 40 places and the last 8 where the text could start: 8 for each block of 8. Those
    /// that do not fit overlap. `followers` becomes what is behind the marked places.
    quint64 marksIn(const char16_t* text, int starts, Followers& followers) const
    {
        Behind behind;
        quint64 marks = 0;
        for (int block = 0; block < followedStarts; block += 2 * blockLength) {
            const int next = block + blockLength;
            const __m128i one = marksAt(text + startOf(block, starts));
            const __m128i other = marksAt(text + startOf(next, starts));
            behind.add(one, text + startOf(block, starts) + m_length);
            if (next < followedStarts)
                behind.add(other, text + startOf(next, starts) + m_length);
            marks |= quint64(uint(_mm_movemask_epi8(_mm_packs_epi16(one, other)))) << block;
        }
        followers = behind.followers();
        return marks;
    }

    /// The place of `marks`, of which there are some, if it is only one; else -1.
    static int onlyPlaceOf(quint64 marks, int starts)
    {
        const int first = placeOf(int(qCountTrailingZeroBits(marks)), starts);
        const int last = placeOf(63 - int(qCountLeadingZeroBits(marks)), starts);
        return first == last ? first : -1;
    }

    /// Whether `check` holds for any place of those that are marked and those without a bit.
    template <typename Check>
    bool anyChecked(quint64 marks, const char16_t* text, int starts, Check check) const
    {
        for (; marks != 0; marks &= marks - 1) {
            if (check(text + placeOf(int(qCountTrailingZeroBits(marks)), starts)))
                return true;
        }
        for (int start = followedStarts; start < starts - blockLength; ++start) {
            if (check(text + start))
                return true;
        }
        return false;
    }

private:
    /// What follows at marked places.
    struct Behind
    {
        void add(__m128i marks, const char16_t* letters)
        {
            const __m128i block = blockAt(letters);
            any = _mm_or_si128(any, _mm_and_si128(marks, block));
            lacking = _mm_or_si128(lacking, _mm_andnot_si128(block, marks));
        }
        Followers followers() const { return {anyOf(any), char16_t(~anyOf(lacking))}; }

        __m128i any = _mm_setzero_si128();
        __m128i lacking = _mm_setzero_si128();
    };

    struct Letter
    {
        Letter() = default;
        explicit Letter(const Spelling& spelling)
            : bits(_mm_set1_epi16(short(spelling.bits)))
            , value(_mm_set1_epi16(short(spelling.value)))
        {
        }

        __m128i marksIn(__m128i block) const { return _mm_cmpeq_epi16(_mm_and_si128(block, bits), value); }

        __m128i bits = {};
        __m128i value = {};
    };

    struct LetterPlace
    {
        LetterPlace() = default;
        explicit LetterPlace(const Place& place)
            : offset(place.offset)
            , hasOther(place.hasOther)
            , usual(place.usual)
            , other(place.other)
        {
        }

        __m128i marksAt(const char16_t* start) const
        {
            const __m128i block = blockAt(start + offset);
            const __m128i marks = usual.marksIn(block);
            return hasOther ? _mm_or_si128(marks, other.marksIn(block)) : marks;
        }

        int offset = 0;
        bool hasOther = false;
        Letter usual;
        Letter other;
    };

    /// The last block is that of the last places, those before are of places that have a letter behind the text.
    static int startOf(int block, int starts)
    {
        return block == followedStarts ? starts - blockLength : std::min(block, starts - 1 - blockLength);
    }

    static int placeOf(int mark, int starts)
    {
        const int inBlock = mark % blockLength;
        return startOf(mark - inBlock, starts) + inBlock;
    }

    static __m128i blockAt(const char16_t* letters)
    {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(letters));
    }

    /// All ones for each of the eight places from `start` where both letters are.
    __m128i marksAt(const char16_t* start) const
    {
        const __m128i marks = m_one.marksAt(start);
        return m_other.offset == m_one.offset ? marks : _mm_and_si128(marks, m_other.marksAt(start));
    }

    /// The bits that any of the letters has.
    static char16_t anyOf(__m128i letters)
    {
        letters = _mm_or_si128(letters, _mm_srli_si128(letters, 8));
        letters = _mm_or_si128(letters, _mm_srli_si128(letters, 4));
        letters = _mm_or_si128(letters, _mm_srli_si128(letters, 2));
        return char16_t(_mm_cvtsi128_si32(letters));
    }

    int m_length = 0;
    bool m_isExact = false;
    LetterPlace m_one;
    LetterPlace m_other;
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
    Sieve(const Place&, const Place&, int, bool) {}
    bool isFor(int) const { return false; }
    bool isExact() const { return false; }
    quint64 marksIn(const char16_t*, int, Followers&) const { return 0; }
    static int onlyPlaceOf(quint64, int) { return -1; }
    template <typename Check>
    bool anyChecked(quint64, const char16_t*, int, Check) const
    {
        return false;
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
        m_letters.append(ignoresCase ? foldings().of[letter.unicode()] : char16_t(letter.unicode()));
}

/// The letters that count as the one at `offset`.
QVector<char16_t> TextSearch::spellingsAt(int offset) const
{
    const char16_t letter = m_text.at(offset).unicode();
    QVector<char16_t> spellings = {letter};
    if (m_caseSensitivity == Qt::CaseInsensitive) {
        for (char16_t other = foldings().nextLike[letter]; other != letter; other = foldings().nextLike[other])
            spellings.append(other);
    }
    return spellings;
}

/// The bits that all of `letters` have the same.
TextSearch::Spelling TextSearch::commonOf(const QVector<char16_t>& letters)
{
    const char16_t any = std::accumulate(letters.begin(), letters.end(), char16_t(0), std::bit_or<>());
    const char16_t all = std::accumulate(letters.begin(), letters.end(), char16_t(0xffff), std::bit_and<>());
    return {char16_t(~(any ^ all)), all};
}

TextSearch::Place TextSearch::placeAt(int offset) const
{
    const auto isExact = [](const QVector<char16_t>& letters, const Spelling& common) {
        return letters.size() <= 2 && countOf(~common.bits) == letters.size() - 1;
    };
    // Capital and small letters as a rule differ in one bit; s and k have a third, rare spelling.
    QVector<char16_t> usual = spellingsAt(offset);
    std::sort(usual.begin(), usual.end(), [letter = usual.first()](char16_t one, char16_t other) {
        return countOf(one ^ letter) < countOf(other ^ letter);
    });
    QVector<char16_t> others;
    while (!isExact(usual, commonOf(usual)))
        others.append(usual.takeLast());
    const Spelling other = commonOf(others);
    return {offset, commonOf(usual), other, !others.isEmpty(), others.isEmpty() || isExact(others, other)};
}

/// The offsets of the letters that fold for themselves, those first that few of a sample of `texts` have.
QVector<int> TextSearch::placesByRarity(const QStringList& texts) const
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

TextSearch::Sieve TextSearch::sieveFor(const QStringList& texts) const
{
    const QVector<int> offsets = placesByRarity(texts);
    if (offsets.isEmpty())
        return {};
    const Place one = placeAt(offsets.first());
    const Place other = placeAt(offsets.value(1, offsets.first()));
    const bool isAll = m_letters.size() == offsets.size() && offsets.size() <= 2;
    return {one, other, m_text.size(), isAll && one.isExact && other.isExact};
}

inline bool TextSearch::standsAt(const char16_t* start) const
{
    if (m_caseSensitivity == Qt::CaseSensitive)
        return std::equal(m_letters.begin(), m_letters.end(), start);
    const char16_t* const folding = foldings().of.data();
    return std::equal(m_letters.begin(), m_letters.end(), start,
                      [folding](char16_t folded, char16_t letter) { return folded == folding[letter]; });
}

/// Whether it is in `text`, and if so, what follows it there.
inline bool TextSearch::isIn(const QString& text, const Sieve& sieve, Followers& followers) const
{
    const int starts = text.size() - m_text.size() + 1;
    if (!sieve.isFor(starts)) {
        followers = {};
        return standsIn(text, starts);
    }
    const quint64 marks = sieve.marksIn(lettersOf(text), starts, followers);
    if (starts > usualStarts) {
        followers = {};
        return standsAtMarks(marks, text, starts, sieve);
    }
    // Without a jump that depends on the answer, which the processor could only guess.
    if (sieve.isExact())
        return marks != 0;
    return marks != 0 && standsAtMarks(marks, text, starts, sieve);
}

/// Whether it is in `text`, and if so at one place only, what follows its first `continuedLength` letters there.
inline bool TextSearch::isIn(const QString& text, const Sieve& sieve, int continuedLength,
                             Continuation& continuation) const
{
    const int starts = text.size() - m_text.size() + 1;
    if (!sieve.isFor(starts))
        return standsIn(text, starts);
    Followers followers;
    const quint64 marks = sieve.marksIn(lettersOf(text), starts, followers);
    const int place = starts > usualStarts || marks == 0 ? -1 : Sieve::onlyPlaceOf(marks, starts);
    if (place >= 0 && !m_letters.isEmpty()) {
        const int behind = place + continuedLength;
        continuation.count = qint16(std::min(text.size() - behind, Continuation::length));
        std::copy_n(lettersOf(text) + behind, continuation.count, continuation.letters.begin());
        return sieve.isExact() || standsAt(lettersOf(text) + place);
    }
    return (marks != 0 || starts > usualStarts) && standsAtMarks(marks, text, starts, sieve);
}

/// Without a sieve.
bool TextSearch::standsIn(const QString& text, int starts) const
{
    if (starts > blockLength || m_letters.isEmpty())
        return text.contains(m_text, m_caseSensitivity);
    for (int start = 0; start < starts; ++start) {
        if (standsAt(lettersOf(text) + start))
            return true;
    }
    return false;
}

bool TextSearch::standsAtMarks(quint64 marks, const QString& text, int starts, const Sieve& sieve) const
{
    if (m_letters.isEmpty())
        return text.contains(m_text, m_caseSensitivity);
    return sieve.anyChecked(marks, lettersOf(text), starts, [this](const char16_t* start) { return standsAt(start); });
}

int TextSearch::firstIn(const QStringList& texts) const
{
    const Sieve sieve = sieveFor(texts);
    const auto text = texts.cbegin();
    Followers followers;
    for (int row = 0; row < texts.size(); ++row) {
        fetch(text[qMin(row + fetchedAhead, texts.size() - 1)]);
        if (isIn(text[row], sieve, followers))
            return row;
    }
    return -1;
}

TextSearch::Found TextSearch::allIn(const QStringList& texts, int first, int end) const
{
    const Sieve sieve = sieveFor(texts);
    const auto text = texts.cbegin();
    Found found{m_text, QVector<int>(end - first), QVector<Followers>(end - first), {}};
    int* const rows = found.rows.data();
    Followers* const followers = found.followers.data();
    int count = 0;
    for (int row = first; row < end; ++row) {
        fetch(text[qMin(row + fetchedAhead, end - 1)]);
        rows[count] = row;
        count += isIn(text[row], sieve, followers[count]);
    }
    shorten(found.rows, count);
    shorten(found.followers, count);
    return found;
}

TextSearch::Found TextSearch::allAmong(const Found& candidates, const QStringList& texts) const
{
    const Sieve sieve = sieveFor(texts);
    const auto text = texts.cbegin();
    const bool goesOn = goesOnFrom(candidates);
    const QVector<int> rows = possibleAmong(candidates);
    const auto knownAt = [&](int i) { return goesOn ? candidates.continuations.at(i) : Continuation(); };
    Found found{m_text, {}, {}, {}, goesOn ? candidates.continuedLength : m_text.size()};
    found.rows.reserve(rows.size());
    found.continuations.reserve(rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        const int ahead = qMin(i + fetchedAhead, rows.size() - 1);
        if (knownAt(ahead).count < 0)
            fetch(text[rows.at(ahead)]);
        Continuation continuation = knownAt(i);
        const bool isFound = continuation.count < 0
                                 ? isIn(text[rows.at(i)], sieve, found.continuedLength, continuation)
                                 : goesOnWith(continuation, found.continuedLength, candidates.text.size());
        if (isFound) {
            found.rows.append(rows.at(i));
            found.continuations.append(continuation);
        }
    }
    shorten(found.rows, found.rows.size());
    shorten(found.continuations, found.rows.size());
    return found;
}

/// Whether the continuations that are known of the candidates tell which of them contain it.
bool TextSearch::goesOnFrom(const Found& candidates) const
{
    return !candidates.continuations.isEmpty() && m_letters.size() > candidates.text.size()
           && m_letters.size() - candidates.continuedLength <= Continuation::length
           && m_text.startsWith(candidates.text, m_caseSensitivity);
}

inline bool TextSearch::goesOnWith(const Continuation& continuation, int continuedLength, int knownLength) const
{
    if (m_letters.size() - continuedLength > continuation.count)
        return false;
    const bool ignoresCase = m_caseSensitivity == Qt::CaseInsensitive;
    const char16_t* const folding = foldings().of.data();
    return std::equal(m_letters.begin() + knownLength, m_letters.end(),
                      continuation.letters.begin() + (knownLength - continuedLength),
                      [=](char16_t own, char16_t letter) { return own == (ignoresCase ? folding[letter] : letter); });
}

/// The rows of the candidates, without most where another letter is behind the text that they contain.
QVector<int> TextSearch::possibleAmong(const Found& candidates) const
{
    const int length = candidates.text.size();
    if (candidates.followers.isEmpty() || m_letters.size() <= length
        || !m_text.startsWith(candidates.text, m_caseSensitivity))
        return candidates.rows;
    const Spelling next = commonOf(spellingsAt(length));
    QVector<int> rows(candidates.rows.size());
    int* possible = rows.data();
    for (int i = 0; i < rows.size(); ++i) {
        const Followers& followers = candidates.followers.at(i);
        *possible = candidates.rows.at(i);
        possible += (((next.value & ~followers.any) | (followers.all & ~next.value)) & next.bits) == 0;
    }
    rows.resize(int(possible - rows.constData()));
    return rows;
}

void TextSearch::Found::forgetWhatFollows()
{
    followers.clear();
    continuations.clear();
}

} // namespace zelmar
