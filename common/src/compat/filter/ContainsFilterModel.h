#pragma once

#include "internal_export.h"

#include "compat/filter/TextSearch.h"

#include <QAbstractProxyModel>
#include <QPointer>

#include <utility>
#include <vector>

namespace zelmar {

class ModelTexts;

/// The top-level rows of a model whose text, of one column and role, contains a text; in the model's order, with all
/// its columns. It follows the model, which may go before it.
class COMMON_UI_QT_INTERNAL_EXPORT ContainsFilterModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    explicit ContainsFilterModel(QObject* parent);

    void setSourceModel(QAbstractItemModel* model) override;

    /// Where the texts are: column from 0, and role. Without a call, 0 and Qt::EditRole.
    void setTextColumn(int column, int role);

    /// Keeps the rows that contain `text`; every row when it is empty.
    void setContainedText(const QString& text, Qt::CaseSensitivity caseSensitivity);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& index) const override;

private Q_SLOTS:
    void onAboutToChange();
    void onReplaced(int first, int removed, int inserted);
    void onReset();
    void onRewritten(int first, int last);
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onModelDestroyed();

private:
    /// A text, and the rows of the model, ascending, that contain it.
    struct Result
    {
        TextSearch search;
        TextSearch::Found found;
    };

    void followModel();
    void narrow(const TextSearch& search);
    void dropOldResults();
    const QVector<int>* shownRows() const;
    void keepShownResultOnly();
    std::pair<int, int> shownAmong(int first, int end) const;
    void replaceRows(int first, int removed, int inserted);

    /// Each one's text contains that of the one before, so that letters taken back cost nothing. The last one is shown;
    /// without any, all rows are.
    std::vector<Result> m_results;
    QPointer<ModelTexts> m_texts;
    int m_column = 0;
    int m_role = Qt::EditRole;
};

} // namespace zelmar
