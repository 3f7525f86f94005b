#pragma once

#include <QAbstractProxyModel>
#include <QPointer>
#include <QString>

namespace zelmar::internal {

class ContainsFilterModel;

/// A proxy model that stands between a completer and its source model. It is the whole source model, children included,
/// until it is narrowed: then it has only those top-level rows that contain a text.
///
/// index() returns indexes of the source model, so that a completion maps straight to the row that it comes from, and a
/// completer that filters the rows itself sees what it would see without this model. Views cannot show such a model;
/// QCompleter's completion model, for which it is made, takes any index that index() returns.
class NarrowedSource : public QAbstractProxyModel
{
    Q_OBJECT

public:
    /// A text, and where it is looked for.
    struct Question
    {
        QString text;
        Qt::CaseSensitivity caseSensitivity = Qt::CaseSensitive;
        int column = 0;
        int role = Qt::EditRole;
    };

    explicit NarrowedSource(QObject* parent);

    /// Shows all rows of `model`, which may be null and may be destroyed while it is in use.
    void setSourceModel(QAbstractItemModel* model) override;
    /// Returns the model, or null as soon as its destructor runs, unlike sourceModel().
    QAbstractItemModel* source() const;

    /// Shows the rows that contain the text, selectable or not, and returns true. Emits a reset unless they are shown
    /// already. Returns false and shows all rows if they are so few that QCompleter needs no noticeable time for them.
    bool narrow(const Question& question);
    /// Emits a reset unless all rows are shown already.
    void showAll();
    /// Returns whether the signals that are being emitted are about rows that still answer the same question, or about
    /// a new one that narrow() was asked.
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
    bool isWorthNarrowing() const;
    void find(const Question& question);
    bool isAnswered(const Question& question) const;

    QPointer<QAbstractItemModel> m_source;
    ContainsFilterModel* m_filter;
    Question m_question;
    bool m_isNarrowed = false;
    int m_shownRows = 0; ///< while narrowed, as the completer was last told
    int m_refreshes = 0; ///< one in the other
};

} // namespace zelmar::internal
