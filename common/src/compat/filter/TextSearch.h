#pragma once

#include "internal_export.h"

#include <QString>
#include <QVector>

#include <array>
#include <optional>

namespace zelmar {

/// A text to look for in very many texts. A text contains it exactly when QString::contains() says so with the same
/// case sensitivity; the empty text is in every text.
class COMMON_UI_QT_INTERNAL_EXPORT TextSearch
{
public:
    TextSearch(QString text, Qt::CaseSensitivity caseSensitivity);

    const QString& text() const { return m_text; }
    Qt::CaseSensitivity caseSensitivity() const { return m_caseSensitivity; }

    struct Found
    {
        QVector<int> rows;   ///< indexes into the texts, ascending
        QVector<int> starts; ///< where the text was seen in each of them, or -1; empty where nobody has noted it
    };

    /// The index from 0 of the first of `texts` that contains it, or -1.
    int firstIn(const QVector<QString>& texts) const;
    /// Those of `texts` from `first` to before `end` that contain it.
    Found allIn(const QVector<QString>& texts, int first, int end) const;
    /// Those of the candidates that contain it. It is looked for first where the candidates have another one: as a rule
    /// the same without its last letter.
    Found allAmong(const Found& candidates, const QVector<QString>& texts) const;

private:
    /// One place of the text, and the letters that count as the same there, its own repeated.
    struct Place
    {
        int offset;
        std::array<char16_t, 4> spellings;
    };
    class Sieve;

    std::optional<Place> placeAt(int offset) const;
    QVector<int> placesByRarity(const QVector<QString>& texts) const;
    Sieve sieveFor(const QVector<QString>& texts) const;
    bool isIn(const QString& text, const Sieve& sieve) const;
    int startAtMarks(quint64 marks, const QString& text, int starts, const Sieve& sieve) const;
    int startIn(const QString& text, const Sieve& sieve, int likelyStart) const;
    bool standsAt(const char16_t* start) const;

    QString m_text;
    Qt::CaseSensitivity m_caseSensitivity;
    /// What stands for the text where texts are compared letter by letter; empty where they cannot be.
    QVector<char16_t> m_letters;
};

} // namespace zelmar
