#pragma once

#include "internal_export.h"

#include <QStringList>
#include <QVector>

#include <array>

namespace zelmar {

/// A text to look for in very many texts. A text contains it exactly when QString::contains() says so with the same
/// case sensitivity; the empty text is in every text.
class COMMON_UI_QT_INTERNAL_EXPORT TextSearch
{
public:
    TextSearch(QString text, Qt::CaseSensitivity caseSensitivity);

    const QString& text() const { return m_text; }
    Qt::CaseSensitivity caseSensitivity() const { return m_caseSensitivity; }

    /// The letters behind a text, at all places where it stands in another one: bits that any of them has, and bits
    /// that all of them have. At first, what says nothing.
    struct Followers
    {
        char16_t any = 0xffff;
        char16_t all = 0;
    };

    /// The letters behind a text where it stands at one place of another one only.
    struct Continuation
    {
        static constexpr int length = 7;

        std::array<char16_t, length> letters;
        qint16 count = -1; ///< -1: it stands at more places, or nobody knows
    };

    struct Found
    {
        QString text;      ///< what was looked for
        QVector<int> rows; ///< indexes into the texts, ascending
        /// What follows the text in each of them; one or the other, or both empty where nobody has noted it.
        QVector<Followers> followers;
        QVector<Continuation> continuations;
        int continuedLength = 0; ///< of the text, or less: what the continuations are behind

        void forgetWhatFollows();
    };

    /// The index from 0 of the first of `texts` that contains it, or -1.
    int firstIn(const QStringList& texts) const;
    /// Those of `texts` from `first` to before `end` that contain it.
    Found allIn(const QStringList& texts, int first, int end) const;
    /// Those of the candidates that contain it. Where they contain, as a rule, the same without its last letter, most
    /// are told by the letters that follow that, without a look at their texts.
    Found allAmong(const Found& candidates, const QStringList& texts) const;

private:
    /// The letters that have `value` in these bits.
    struct Spelling
    {
        char16_t bits;
        char16_t value;
    };
    /// One place of the text, and the letters that count as the same there: a usual spelling and perhaps another one.
    struct Place
    {
        int offset;
        Spelling usual;
        Spelling other;
        bool hasOther;
        bool isExact; ///< no other letters have the spellings
    };
    class Sieve;

    static Spelling commonOf(const QVector<char16_t>& letters);
    QVector<char16_t> spellingsAt(int offset) const;
    Place placeAt(int offset) const;
    QVector<int> placesByRarity(const QStringList& texts) const;
    Sieve sieveFor(const QStringList& texts) const;
    bool isIn(const QString& text, const Sieve& sieve, Followers& followers) const;
    bool isIn(const QString& text, const Sieve& sieve, int continuedLength, Continuation& continuation) const;
    bool standsIn(const QString& text, int starts) const;
    bool standsAtMarks(quint64 marks, const QString& text, int starts, const Sieve& sieve) const;
    bool goesOnFrom(const Found& candidates) const;
    bool goesOnWith(const Continuation& continuation, int continuedLength, int knownLength) const;
    QVector<int> possibleAmong(const Found& candidates) const;
    bool standsAt(const char16_t* start) const;

    QString m_text;
    Qt::CaseSensitivity m_caseSensitivity;
    /// What stands for the text where texts are compared letter by letter; empty where they cannot be.
    QVector<char16_t> m_letters;
};

} // namespace zelmar
