#pragma once

#include <QAbstractProxyModel>
#include <QPointer>
#include <QString>

namespace zelmar::internal {

class ContainsFilterModel;

/// A proxy model between a completer and its source model. It shows all rows of the source model with their children,
/// or, if it is narrowed, only the top-level rows that contain a needle.
///
/// Its model indexes are those of the source model. A completion therefore maps to its source row directly, and a
/// completer that filters the rows itself reads the same as without this model. A view could not show such a model. The
/// completion model of QCompleter can, because it accepts any model index that index() returns.
class NarrowedSource : public QAbstractProxyModel
{
    Q_OBJECT

public:
    /// A needle, and the column and role of the texts in which it is searched.
    struct Query
    {
        QString needle;
        Qt::CaseSensitivity caseSensitivity = Qt::CaseSensitive;
        int column = 0;
        int role = Qt::EditRole;
    };

    explicit NarrowedSource(QObject* parent);

    /// Shows all rows of `model`, which may be null and may be destroyed at any time. The caller keeps ownership.
    void setSourceModel(QAbstractItemModel* model) override;
    /// Returns the source model, or null once its destructor runs. sourceModel() still returns it then.
    QAbstractItemModel* source() const;

    /// Shows the rows that contain the needle, selectable or not, and returns true. Resets this model unless they are
    /// shown already. Returns false and shows all rows if there are so few that QCompleter searches them fast enough.
    bool narrow(const Query& query);
    /// Shows all rows. Resets this model unless they are shown already.
    void showAll();
    /// Returns whether this model is emitting signals because narrow() was called or the narrowed rows have changed.
    bool isRefreshing() const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QHash<int, QByteArray> roleNames() const override;
    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& index) const override;

protected Q_SLOTS:
    /// Does nothing. QAbstractProxyModel would ask the source model for its roles, even while that is being destroyed.
    /// endResetModel() calls this slot; Qt 5 finds it by its name, and in Qt 6 it is virtual.
    void resetInternalData();

private:
    void onRowsInserted(const QModelIndex& parent, int first, int last);
    void onRowsChanged();
    void onReset();
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onSourceDestroyed();
    void onFilterChanged();
    void onFilterDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

    void followSource();
    void followFilter();
    bool isSourceDying() const;
    bool isWorthNarrowing() const;
    void search(const Query& query);
    bool isShown(const Query& query) const;

    /// Null once its destructor runs, unlike sourceModel(). Neither the source model nor the filter may be used then.
    QPointer<QAbstractItemModel> m_source;
    ContainsFilterModel* m_filter;
    Query m_query; ///< the query whose rows are shown if this model is narrowed
    bool m_isNarrowed = false;
    int m_shownRows = 0; ///< the number of matching rows that this model has reported last
    int m_refreshes = 0; ///< the number of nested functions that are emitting the signals of a refresh
};

} // namespace zelmar::internal
