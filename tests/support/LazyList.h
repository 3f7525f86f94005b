#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// A list that shows its texts in batches, as its viewers ask for more. Rows are put in, changed and taken away among
/// those that are shown.
class LazyList : public QAbstractListModel
{
public:
    LazyList(QStringList texts, int batch)
        : m_texts(std::move(texts))
        , m_batch(batch)
    {
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_shown; }
    /// Returns an invalid variant for an invalid index, which QCompleter asks for when rows go while it is told of
    /// others.
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

    /// Adds texts that are shown only when somebody asks for more.
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
    /// Who is told of a change before it is made cannot have more rows fetched.
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
