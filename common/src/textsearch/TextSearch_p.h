#pragma once

#include "internal_export_p.h"

#include "textsearch/CaseFolding_p.h"
#include "textsearch/LookAhead_p.h"
#include "textsearch/Prefilter_p.h"

#include <QStringList>
#include <QVector>

namespace zelmar::internal {

/// A search for one needle in very many short haystacks, for example the rows of a model. The results are those of
/// QString::contains() with the same case sensitivity. Every haystack contains an empty needle.
///
/// When the user types another character, allAmong() searches only the results for the shorter needle.
/// docs/textsearch.md explains the method.
class COMMON_UI_QT_INTERNAL_EXPORT TextSearch
{
public:
    TextSearch(QString text, Qt::CaseSensitivity caseSensitivity);

    /// Returns the needle.
    const QString& text() const { return m_text; }
    Qt::CaseSensitivity caseSensitivity() const { return m_caseSensitivity; }

    /// The haystacks that contain a needle.
    struct COMMON_UI_QT_INTERNAL_EXPORT Found
    {
        QString needle;
        QVector<int> rows; ///< indexes into the texts, from 0, in ascending order
        /// The bits of the code units that follow the needle in each of `rows`, or empty. Never set together with
        /// `lookAheads`.
        QVector<FollowingUnits> following;
        /// The look-ahead of each of `rows`, or empty.
        QVector<LookAhead> lookAheads;
        int lookAheadStart = 0; ///< offset in the needle at which the look-aheads start

        /// Removes the following code units and the look-aheads. Must be called when the rows or their texts change.
        /// The next search then reads the texts again.
        void forgetLookAheads();
        /// Returns the size of the vectors in bytes.
        qint64 byteCount() const;
    };

    /// Returns the index of the first of `texts` that contains the needle, or -1 if none does.
    int firstIn(const QStringList& texts) const;
    /// Returns the texts in the index range [`first`, `end`) that contain the needle, together with the bits of
    /// the code units that follow it.
    Found allIn(const QStringList& texts, int first, int end) const;
    /// Returns the candidates that contain the needle. Reads hardly any text if `candidates` has look-aheads from a
    /// search in the same texts, with the same case sensitivity, for a needle that this one starts with.
    Found allAmong(const Found& candidates, const QStringList& texts) const;

private:
    struct Survivors;

    bool containsAnywhere(QStringView haystack) const;
    template <typename... Following>
    quint64 candidatePositions(QStringView haystack, Following&... following) const;
    bool containsAt(QStringView haystack, quint64 positions) const;
    bool anyMatches(const char16_t* haystack, quint64 positions) const;
    bool matchesAt(const char16_t* position) const;
    bool verify(QStringView haystack, quint64 positions, int lookAheadStart, LookAhead& lookAhead) const;
    bool continues(const Found& candidates) const;
    QVector<int> possibleAmong(const Found& candidates) const;
    LookAheadFilter filterFor(const Found& candidates) const;
    void prefilterBlock(Survivors& survivors, const QVector<int>& rows, int first, const QStringList& texts,
                        const LookAheadFilter& filter) const;
    void verifyBlock(const Survivors& survivors, const QVector<int>& rows, const QStringList& texts,
                     const LookAheadFilter& filter, Found& found) const;

    QString m_text;
    Qt::CaseSensitivity m_caseSensitivity;
    CaseFolding m_folding;
    /// The folded code units of the needle. Empty if the needle cannot be compared by code units, so that QString has
    /// to compare it.
    QVector<char16_t> m_units;
    Prefilter m_prefilter;
    bool m_isPrefilterEnough = false; ///< whether each candidate position is an occurrence of the needle
};

} // namespace zelmar::internal
