#include "compat/substitute/NarrowedSource_p.h"

#include "textsearch/ContainsFilterModel_p.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <utility>

namespace zelmar::internal {

namespace {

using Model = QAbstractItemModel;

/// The minimum number of rows that are narrowed. QCompleter filters fewer rows in less time than a screen refresh
/// takes.
constexpr int minNarrowedRows = 1000;

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
    const bool isFormerDying = isSourceDying();
    m_source = model;
    if (!isFormerDying) {
        QAbstractProxyModel::setSourceModel(model);
        m_filter->setSourceModel(nullptr);
    }
    // This model connects before the filter, because it must be notified first when the source model is destroyed.
    followSource();
    endResetModel();
}

/// Returns whether the destructor of the model that sourceModel() returns is running. That model cannot be replaced
/// before it has sent destroyed(), because QAbstractProxyModel disconnects its signals by name, and the meta-object
/// of a half-destroyed model no longer has them.
bool NarrowedSource::isSourceDying() const
{
    return sourceModel() && sourceModel() != m_source;
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
    return m_source && !isSourceDying() && m_source->rowCount() >= minNarrowedRows;
}

bool NarrowedSource::isShown(const Query& query) const
{
    return m_isNarrowed && query.needle == m_query.needle && query.caseSensitivity == m_query.caseSensitivity
           && query.column == m_query.column && query.role == m_query.role;
}

bool NarrowedSource::narrow(const Query& query)
{
    if (isShown(query))
        return true;
    if (!isWorthNarrowing()) {
        showAll();
        return false;
    }
    const QScopedValueRollback<int> refresh(m_refreshes, m_refreshes + 1);
    beginResetModel();
    search(query);
    m_isNarrowed = true;
    m_query = query;
    m_shownRows = m_filter->rowCount();
    endResetModel();
    return true;
}

/// Makes the filter search, without signals of the filter, because the caller emits one reset for all changes.
void NarrowedSource::search(const Query& query)
{
    const QSignalBlocker quiet(m_filter);
    if (m_filter->sourceModel() != m_source)
        m_filter->setSourceModel(m_source);
    m_filter->setTextColumn(query.column, query.role);
    m_filter->setContainedText(query.needle, query.caseSensitivity);
}

void NarrowedSource::showAll()
{
    // The filter must not be used while the source model is being destroyed.
    if (!m_isNarrowed || !m_source)
        return;
    beginResetModel();
    m_isNarrowed = false;
    m_filter->setContainedText(QString(), m_query.caseSensitivity);
    endResetModel();
}

bool NarrowedSource::isRefreshing() const
{
    return m_refreshes > 0;
}

void NarrowedSource::resetInternalData()
{
}

// Following the source model

void NarrowedSource::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    if (m_isNarrowed)
        return; // The filter reports the change.
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
        showAll(); // Upon this reset, the completer sets its prefix again.
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
    if (m_source) { // another model has been set while the destructor was running
        QAbstractProxyModel::setSourceModel(m_source);
        return;
    }
    beginResetModel();
    m_isNarrowed = false;
    endResetModel();
}

/// Reports additional rows as inserted at the end, because QCompleter enlarges its popup when rows are inserted. Their
/// positions do not matter to it.
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

// These functions are overridden because QAbstractProxyModel calls a source model even while it is being destroyed.

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
