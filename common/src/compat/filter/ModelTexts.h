#pragma once

#include "internal_export.h"

#include <QModelIndex>
#include <QObject>
#include <QStringList>
#include <QVector>

class QAbstractItemModel;

namespace zelmar {

/// The texts of one column and role of a model's top-level rows, read once and kept in step with the model from then
/// on. It belongs to the model and lives as long: who looks for names again, in the next cell of a table, need not wait
/// until a million of them are read again. While nobody listens it is not kept in step, but forgotten at the first
/// change. The list of a QStringListModel is shared with it, without a look at any row, until the model changes.
class COMMON_UI_QT_INTERNAL_EXPORT ModelTexts : public QObject
{
    Q_OBJECT

public:
    /// That of `model` for `column`, from 0, and `role`; made when there is none.
    static ModelTexts& of(QAbstractItemModel& model, int column, int role);

    /// By row. As long as nothing reads them, nothing is kept.
    const QStringList& texts();

Q_SIGNALS:
    /// Rows are about to come, go, or move; replaced() or reset() follows.
    void aboutToChange();
    /// In place of `removed` rows from `first` on there are `inserted` rows now; the texts are as they are in the
    /// model.
    void replaced(int first, int removed, int inserted);
    /// All rows may be other ones.
    void reset();
    /// The rows are the same, and the texts of those from `first` to `last` may have changed.
    void rewritten(int first, int last);

private Q_SLOTS:
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onRowsInserted(const QModelIndex& parent, int first, int last);
    void onRowsRemoved(const QModelIndex& parent, int first, int last);
    void onRowsMoved(const QModelIndex& source, int first, int last, const QModelIndex& destination, int row);
    void onReset();

private:
    ModelTexts(QAbstractItemModel& model, int column, int role);
    void connectModel();
    static ModelTexts* find(const QAbstractItemModel& model, int column, int role);
    void shareWithTwin();
    bool concerns(const QVector<int>& roles) const;
    bool isListenedTo() const;
    QString textAt(int row) const;
    bool isListOfStrings() const;
    QStringList readAll() const;
    void forget();
    void read(int first, int end);
    void resize(int row, int more);
    void replace(int first, int removed, int inserted);

    QAbstractItemModel& m_model;
    const int m_column;
    const int m_role;
    bool m_isRead = false;
    QStringList m_texts;
};

} // namespace zelmar
