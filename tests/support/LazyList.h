#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// A list model that has its rows in batches, each added by fetchMore(). Rows can be inserted, changed and removed
/// among those that it has already.
class LazyList : public QAbstractListModel
{
public:
    LazyList(QStringList texts, int batch)
        : m_texts(std::move(texts))
        , m_batch(batch)
    {
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_shown; }
    /// Returns an invalid variant for an invalid index, for which QCompleter asks if rows are removed while it handles
    /// a change of others.
    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isText = role == Qt::EditRole || role == Qt::DisplayRole;
        return isText && index.isValid() ? m_texts.at(index.row()) : QVariant();
    }
    bool canFetchMore(const QModelIndex& parent) const override
    {
        return !parent.isValid() && !m_isChanging && m_shown < m_texts.size();
    }
    void fetchMore(const QModelIndex& parent) override
    {
        const int more = qMin(m_batch, m_texts.size() - m_shown);
        if (!canFetchMore(parent))
            return;
        announce([&] { beginInsertRows({}, m_shown, m_shown + more - 1); });
        m_shown += more;
        endInsertRows();
    }

    /// Adds texts whose rows only fetchMore() adds.
    void addUnseen(const QStringList& texts) { m_texts += texts; }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (!index.isValid() || role != Qt::EditRole)
            return false;
        m_texts[index.row()] = value.toString();
        Q_EMIT dataChanged(index, index);
        return true;
    }
    bool insertRows(int row, int count, const QModelIndex& parent) override
    {
        if (parent.isValid() || row < 0 || row > m_shown || count <= 0)
            return false;
        announce([&] { beginInsertRows({}, row, row + count - 1); });
        for (int i = 0; i < count; ++i)
            m_texts.insert(row, QString());
        m_shown += count;
        endInsertRows();
        return true;
    }
    bool removeRows(int row, int count, const QModelIndex& parent) override
    {
        if (parent.isValid() || row < 0 || count <= 0 || row + count > m_shown)
            return false;
        announce([&] { beginRemoveRows({}, row, row + count - 1); });
        m_texts.erase(m_texts.begin() + row, m_texts.begin() + row + count);
        m_shown -= count;
        endRemoveRows();
        return true;
    }

private:
    /// Announces a change with `begin`. Receivers of the signals cannot fetch rows before the change is made.
    template <typename Begin>
    void announce(const Begin& begin)
    {
        m_isChanging = true;
        begin();
        m_isChanging = false;
    }

    QStringList m_texts;
    int m_batch;
    int m_shown = 0;
    bool m_isChanging = false;
};
