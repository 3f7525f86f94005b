#include "compat/substitute/NarrowedSource_p.h"

#include "textsearch/ContainsFilterModel_p.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <utility>

namespace zelmar::internal {

namespace {

using Model = QAbstractItemModel;

/// The number of rows from which on the library searches. QCompleter searches fewer rows faster than a screen
/// refreshes.
constexpr int manyRows = 1000;

} // namespace

NarrowedSource::NarrowedSource(QObject* parent)
    : QAbstractProxyModel(parent)
    , m_filter(new ContainsFilterModel(this))
{
    followFilter();
}

void NarrowedSource::setSourceModel(QAbstractItemModel* model)
{
    beginResetModel();
    if (m_source)
        disconnect(m_source, nullptr, this, nullptr);
    m_isNarrowed = false;
    // Connects before the filter does, because this model must be notified first when the source is destroyed.
    m_source = model;
    QAbstractProxyModel::setSourceModel(model);
    followSource();
    m_filter->setSourceModel(nullptr);
    endResetModel();
}

QAbstractItemModel* NarrowedSource::source() const
{
    return m_source;
}

void NarrowedSource::followSource()
{
    if (!m_source)
        return;
    const auto connectAll = [this](auto slot, auto... signals) { (connect(m_source, signals, this, slot), ...); };
    connect(m_source, &Model::rowsInserted, this, &NarrowedSource::onRowsInserted);
    connect(m_source, &Model::dataChanged, this, &NarrowedSource::onDataChanged);
    connect(m_source, &QObject::destroyed, this, &NarrowedSource::onSourceDestroyed);
    connectAll(&NarrowedSource::onRowsChanged, &Model::rowsRemoved, &Model::rowsMoved, &Model::layoutChanged);
    connectAll(&NarrowedSource::onReset, &Model::columnsInserted, &Model::columnsRemoved, &Model::columnsMoved,
               &Model::modelReset);
}

void NarrowedSource::followFilter()
{
    const auto connectAll = [this](auto slot, auto... signals) { (connect(m_filter, signals, this, slot), ...); };
    connectAll(&NarrowedSource::onFilterChanged, &Model::modelReset, &Model::layoutChanged, &Model::rowsInserted,
               &Model::rowsRemoved, &Model::rowsMoved);
    connect(m_filter, &Model::dataChanged, this, &NarrowedSource::onFilterDataChanged);
}

// Narrowing

bool NarrowedSource::isWorthNarrowing() const
{
    return m_source && m_source->rowCount() >= manyRows;
}

bool NarrowedSource::isAnswered(const Question& question) const
{
    return m_isNarrowed && question.text == m_question.text && question.caseSensitivity == m_question.caseSensitivity
           && question.column == m_question.column && question.role == m_question.role;
}

bool NarrowedSource::narrow(const Question& question)
{
    if (isAnswered(question))
        return true;
    if (!isWorthNarrowing()) {
        showAll();
        return false;
    }
    const QScopedValueRollback<int> refresh(m_refreshes, m_refreshes + 1);
    beginResetModel();
    find(question);
    m_isNarrowed = true;
    m_question = question;
    m_shownRows = m_filter->rowCount();
    endResetModel();
    return true;
}

/// Makes the filter search the rows without signals. The caller emits one reset for all changes.
void NarrowedSource::find(const Question& question)
{
    const QSignalBlocker quiet(m_filter);
    if (m_filter->sourceModel() != m_source)
        m_filter->setSourceModel(m_source);
    m_filter->setTextColumn(question.column, question.role);
    m_filter->setContainedText(question.text, question.caseSensitivity);
}

void NarrowedSource::showAll()
{
    // A reset asks the source for its roles, which it cannot answer while it is being destroyed.
    if (!m_isNarrowed || !m_source)
        return;
    beginResetModel();
    m_isNarrowed = false;
    m_filter->setContainedText(QString(), m_question.caseSensitivity);
    endResetModel();
}

bool NarrowedSource::isRefreshing() const
{
    return m_refreshes > 0;
}

// Following the source model

void NarrowedSource::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    if (m_isNarrowed)
        return; // the filter reports the change
    beginInsertRows(parent, first, last);
    endInsertRows();
}

void NarrowedSource::onRowsChanged()
{
    if (m_isNarrowed)
        return;
    beginResetModel();
    endResetModel();
}

void NarrowedSource::onReset()
{
    if (m_isNarrowed)
        showAll(); // makes the completer ask again
    else
        onRowsChanged();
}

void NarrowedSource::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                   const QVector<int>& roles)
{
    if (!m_isNarrowed)
        Q_EMIT dataChanged(topLeft, bottomRight, roles);
}

void NarrowedSource::onSourceDestroyed()
{
    beginResetModel();
    m_isNarrowed = false;
    endResetModel();
}

/// Reports additional rows as inserted, because the completer then enlarges its popup. Their positions do not matter.
void NarrowedSource::onFilterChanged()
{
    if (!m_isNarrowed)
        return;
    const QScopedValueRollback<int> refresh(m_refreshes, m_refreshes + 1);
    const int before = std::exchange(m_shownRows, m_filter->rowCount());
    if (m_shownRows > before) {
        beginInsertRows(QModelIndex(), before, m_shownRows - 1);
        endInsertRows();
    } else {
        beginResetModel();
        endResetModel();
    }
}

void NarrowedSource::onFilterDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                         const QVector<int>& roles)
{
    if (!m_isNarrowed)
        return;
    const QScopedValueRollback<int> refresh(m_refreshes, m_refreshes + 1);
    Q_EMIT dataChanged(m_filter->mapToSource(topLeft), m_filter->mapToSource(bottomRight), roles);
}

// The model

QModelIndex NarrowedSource::index(int row, int column, const QModelIndex& parent) const
{
    if (!m_source)
        return {};
    if (m_isNarrowed && !parent.isValid())
        return m_filter->mapToSource(m_filter->index(row, column));
    return m_source->index(row, column, parent);
}

QModelIndex NarrowedSource::parent(const QModelIndex& child) const
{
    return child.isValid() && child.model() != this ? child.parent() : QModelIndex();
}

int NarrowedSource::rowCount(const QModelIndex& parent) const
{
    if (!m_source)
        return 0;
    return m_isNarrowed && !parent.isValid() ? m_filter->rowCount() : m_source->rowCount(parent);
}

int NarrowedSource::columnCount(const QModelIndex& parent) const
{
    return m_source ? m_source->columnCount(parent) : 0;
}

bool NarrowedSource::hasChildren(const QModelIndex& parent) const
{
    if (!m_source)
        return false;
    return m_isNarrowed && !parent.isValid() ? m_filter->rowCount() > 0 : m_source->hasChildren(parent);
}

bool NarrowedSource::canFetchMore(const QModelIndex& parent) const
{
    return m_source && m_source->canFetchMore(parent);
}

void NarrowedSource::fetchMore(const QModelIndex& parent)
{
    if (m_source)
        m_source->fetchMore(parent);
}

// QAbstractProxyModel would call a source model that is being destroyed until its own slot has run.

QVariant NarrowedSource::data(const QModelIndex& index, int role) const
{
    return m_source && index.isValid() ? m_source->data(index, role) : QVariant();
}

Qt::ItemFlags NarrowedSource::flags(const QModelIndex& index) const
{
    return m_source && index.isValid() ? m_source->flags(index) : Qt::ItemFlags();
}

QHash<int, QByteArray> NarrowedSource::roleNames() const
{
    return m_source ? m_source->roleNames() : QHash<int, QByteArray>();
}

QModelIndex NarrowedSource::mapToSource(const QModelIndex& index) const
{
    return index;
}

QModelIndex NarrowedSource::mapFromSource(const QModelIndex& index) const
{
    return index;
}

} // namespace zelmar::internal
