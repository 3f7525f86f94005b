#pragma once

#include "internal_export_p.h"

#include "textsearch/TextSearch_p.h"

#include <QAbstractProxyModel>
#include <QPointer>

#include <utility>
#include <vector>

namespace zelmar::internal {

class ModelTexts;

/// A proxy model that shows the top-level rows of a source model that contain a needle in their text of one column and
/// role. It keeps the order of the rows and all columns.
///
/// Each change of the source model's rows resets this model. Between the ...AboutToBe... signal of the source model and
/// the end of the change, and in slots that receive the change before this model does, rowCount() returns the number
/// that was announced last. A row that is no longer in the source model or no longer contains the needle has no data. A
/// new needle is always searched in the current rows of the source model.
///
/// fetchMore() fetches all rows that the source model has not fetched yet, batch by batch.
///
/// The source model may be destroyed before this model. While its destructor runs, this model must not be called until
/// it has received destroyed(). GUI thread only.
class COMMON_UI_QT_INTERNAL_EXPORT ContainsFilterModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    explicit ContainsFilterModel(QObject* parent);

    /// Shows all rows of `model`, or no rows if it is null. The caller keeps ownership.
    void setSourceModel(QAbstractItemModel* model) override;

    /// Sets the column, counted from 0, and the role of the texts. They are initially 0 and Qt::EditRole. If one of
    /// them changes, all rows are shown.
    void setTextColumn(int column, int role);

    /// Shows the rows that contain the needle `text`, or all rows if it is empty.
    void setContainedText(const QString& text, Qt::CaseSensitivity caseSensitivity);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& index) const override;

private:
    void onAboutToChange();
    void onTextsChanged();
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onModelDestroyed();

    /// A needle and the rows of the source model that contain it.
    struct Result
    {
        TextSearch search;
        TextSearch::Found found;
    };

    void followModel();
    void endResetWithoutFetching();
    bool isShown(const QString& text, Qt::CaseSensitivity caseSensitivity) const;
    bool isCurrent() const;
    void narrow(const TextSearch& search);
    void dropOldResults();
    const QVector<int>* shownRows() const;
    void keepShownResultOnly();
    std::pair<int, int> shownAmong(int first, int end) const;
    bool staysShown();
    void searchAgain();
    void replaceRows(int first, int removed, int inserted);
    bool containsNow(int sourceRow) const;

    /// The results for successively longer needles, each of which contains the one before. They make deleting
    /// characters cheap. The last result is shown; if there is none, all rows are shown.
    std::vector<Result> m_results;
    quint64 m_generation = 0;        ///< generation of the texts that were searched
    bool m_isSourceChanging = false; ///< a reset has begun because the source model is changing
    bool m_refusesToFetch = false;   ///< canFetchMore() returns false as long as this is true
    QPointer<ModelTexts> m_texts;
    int m_column = 0;
    int m_role = Qt::EditRole;
};

} // namespace zelmar::internal
