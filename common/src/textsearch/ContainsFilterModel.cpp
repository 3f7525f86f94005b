#include "textsearch/ContainsFilterModel_p.h"

#include "textsearch/ModelTexts_p.h"

#include <algorithm>
#include <numeric>

namespace zelmar::internal {

namespace {

/// The maximum size of all results together, in integers per row of the source model. The oldest results are dropped if
/// there are more.
constexpr qint64 maxIntegersPerRow = 4;

/// Returns whether another fetch is worthwhile: `model` can fetch more rows, and the previous fetch has changed the
/// number of rows. `rows` is the number before that fetch, or -1 if there was none.
bool canFetchFrom(const QAbstractItemModel* model, int rows)
{
    return model && model->rowCount() != rows && model->canFetchMore({});
}

} // namespace

ContainsFilterModel::ContainsFilterModel(QObject* parent)
    : QAbstractProxyModel(parent)
{
}

void ContainsFilterModel::setSourceModel(QAbstractItemModel* model)
{
    if (!std::exchange(m_isSourceChanging, false))
        beginResetModel();
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    QAbstractProxyModel::setSourceModel(model);
    followModel();
    endResetModel();
}

void ContainsFilterModel::setTextColumn(int column, int role)
{
    if (column == m_column && role == m_role)
        return;
    if (!std::exchange(m_isSourceChanging, false))
        beginResetModel();
    m_column = column;
    m_role = role;
    followModel();
    endResetWithoutFetching();
}

/// Connects to the source model and to the cache of its texts. All rows are shown afterwards.
void ContainsFilterModel::followModel()
{
    m_results.clear();
    if (m_texts)
        disconnect(m_texts, nullptr, this, nullptr);
    m_texts.clear();
    if (!sourceModel())
        return;
    m_texts = &ModelTexts::of(*sourceModel(), m_column, m_role);
    m_generation = m_texts->generation();
    connect(m_texts, &ModelTexts::aboutToChange, this, &ContainsFilterModel::onAboutToChange);
    connect(m_texts, &ModelTexts::changed, this, &ContainsFilterModel::onTextsChanged);
    connect(sourceModel(), &QAbstractItemModel::dataChanged, this, &ContainsFilterModel::onDataChanged,
            Qt::UniqueConnection);
    connect(sourceModel(), &QObject::destroyed, this, &ContainsFilterModel::onModelDestroyed, Qt::UniqueConnection);
}

void ContainsFilterModel::onModelDestroyed()
{
    setSourceModel(nullptr);
}

// Searching

void ContainsFilterModel::setContainedText(const QString& text, Qt::CaseSensitivity caseSensitivity)
{
    if (isShown(text, caseSensitivity) && isCurrent())
        return;
    // While the source model is changing, a reset has begun and ends after the change.
    const bool hasBegun = m_isSourceChanging;
    if (!hasBegun)
        beginResetModel();
    if (!isCurrent())
        m_results.clear();
    if (m_texts)
        m_generation = m_texts->generation();
    const auto narrows = [&](const Result& result) {
        return result.search.caseSensitivity() == caseSensitivity
               && text.contains(result.search.text(), caseSensitivity);
    };
    while (!m_results.empty() && !narrows(m_results.back()))
        m_results.pop_back();
    if (!text.isEmpty() && m_texts && (m_results.empty() || m_results.back().search.text() != text))
        narrow(TextSearch(text, caseSensitivity));
    if (!hasBegun)
        endResetWithoutFetching();
}

/// Ends a reset. Slots that receive its signal cannot fetch rows. The completer sets the column and the needle one
/// after the other and fetches more rows afterwards. If rows were inserted in between, slots would set a newer needle,
/// which the completer would then replace by the older one.
void ContainsFilterModel::endResetWithoutFetching()
{
    const QPointer<ContainsFilterModel> self(this);
    const bool refusedBefore = std::exchange(m_refusesToFetch, true);
    endResetModel();
    if (self)
        m_refusesToFetch = refusedBefore;
}

bool ContainsFilterModel::isShown(const QString& text, Qt::CaseSensitivity caseSensitivity) const
{
    if (m_results.empty() || text.isEmpty())
        return m_results.empty() && text.isEmpty();
    const TextSearch& search = m_results.back().search;
    return search.text() == text && search.caseSensitivity() == caseSensitivity;
}

/// Returns whether another search would find the rows that are shown.
bool ContainsFilterModel::isCurrent() const
{
    return !m_texts || m_texts->isCurrent(m_generation);
}

void ContainsFilterModel::narrow(const TextSearch& search)
{
    const QStringList texts = m_texts->texts();
    m_generation = m_texts->generation();
    m_results.push_back({search, m_results.empty() ? search.allIn(texts, 0, texts.size())
                                                   : search.allAmong(m_results.back().found, texts)});
    if (m_results.size() > 1)
        m_results[m_results.size() - 2].found.forgetLookAheads(); // only the last result is narrowed
    dropOldResults();
}

void ContainsFilterModel::dropOldResults()
{
    const auto held = [this] {
        return std::accumulate(m_results.begin(), m_results.end(), qint64(0),
                               [](qint64 sum, const Result& result) { return sum + result.found.byteCount(); });
    };
    while (m_results.size() > 1 && held() > maxIntegersPerRow * sourceModel()->rowCount() * qint64(sizeof(int)))
        m_results.erase(m_results.begin());
}

/// Returns the shown rows of the source model, or null if all rows are shown.
const QVector<int>* ContainsFilterModel::shownRows() const
{
    return m_results.empty() ? nullptr : &m_results.back().found.rows;
}

// Rows and data

QModelIndex ContainsFilterModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex ContainsFilterModel::parent(const QModelIndex&) const
{
    return {};
}

int ContainsFilterModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !sourceModel())
        return 0;
    return shownRows() ? shownRows()->size() : sourceModel()->rowCount();
}

int ContainsFilterModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
}

bool ContainsFilterModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

bool ContainsFilterModel::canFetchMore(const QModelIndex& parent) const
{
    return !parent.isValid() && !m_refusesToFetch && m_texts && !m_texts->isChangeUnderWay() && sourceModel()
           && sourceModel()->canFetchMore({});
}

/// Fetches all rows in a loop. QCompleter calls fetchMore() whenever rows have been inserted, within the call that
/// inserts them. Nested calls are refused, because with many batches they would overflow the stack.
void ContainsFilterModel::fetchMore(const QModelIndex& parent)
{
    if (!canFetchMore(parent))
        return;
    m_refusesToFetch = true;
    const QPointer<ContainsFilterModel> self(this);
    for (int rows = -1; self && canFetchFrom(sourceModel(), rows);) {
        rows = sourceModel()->rowCount();
        sourceModel()->fetchMore({});
    }
    if (self)
        m_refusesToFetch = false;
}

QVariant ContainsFilterModel::data(const QModelIndex& index, int role) const
{
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? sourceModel()->data(source, role) : QVariant();
}

Qt::ItemFlags ContainsFilterModel::flags(const QModelIndex& index) const
{
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? sourceModel()->flags(source) : Qt::ItemFlags();
}

QModelIndex ContainsFilterModel::mapToSource(const QModelIndex& index) const
{
    if (!index.isValid() || !sourceModel())
        return {};
    const int row = shownRows() ? shownRows()->value(index.row(), -1) : index.row();
    if (!sourceModel()->hasIndex(row, index.column()) || (shownRows() && !isCurrent() && !containsNow(row)))
        return {};
    return sourceModel()->index(row, index.column());
}

bool ContainsFilterModel::containsNow(int sourceRow) const
{
    const TextSearch& search = m_results.back().search;
    const QModelIndex index = sourceModel()->index(sourceRow, m_column);
    return index.isValid() && index.data(m_role).toString().contains(search.text(), search.caseSensitivity());
}

QModelIndex ContainsFilterModel::mapFromSource(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != sourceModel() || index.parent().isValid())
        return {};
    if (!shownRows())
        return createIndex(index.row(), index.column());
    const auto found = std::lower_bound(shownRows()->begin(), shownRows()->end(), index.row());
    if (found == shownRows()->end() || *found != index.row())
        return {};
    return createIndex(int(found - shownRows()->begin()), index.column());
}

// Following the source model

void ContainsFilterModel::onAboutToChange()
{
    if (!std::exchange(m_isSourceChanging, true))
        beginResetModel();
}

void ContainsFilterModel::onTextsChanged()
{
    const bool hasBegun = std::exchange(m_isSourceChanging, false);
    if (!hasBegun) {
        if (isCurrent() || staysShown())
            return;
        beginResetModel();
    }
    if (!isCurrent())
        searchAgain();
    endResetModel();
}

/// Returns whether only texts have changed and the same rows as before contain the needle. A move of rows changes
/// texts, too, but it is announced, so that a reset has begun and this function is not called.
bool ContainsFilterModel::staysShown()
{
    const ModelTexts::Change* const change = m_texts->changeSince(m_generation);
    if (!change || change->removed != change->inserted)
        return false;
    if (m_results.empty()) {
        m_generation = m_texts->generation();
        return true;
    }
    const int end = change->first + change->inserted;
    const QVector<int> found = m_results.back().search.allIn(m_texts->texts(), change->first, end).rows;
    const auto [begin, behind] = shownAmong(change->first, end);
    const auto shown = shownRows()->cbegin();
    if (!std::equal(shown + begin, shown + behind, found.cbegin(), found.cend()))
        return false;
    keepShownResultOnly();
    m_generation = m_texts->generation();
    return true;
}

void ContainsFilterModel::searchAgain()
{
    if (m_results.empty()) {
        m_generation = m_texts->generation();
    } else if (const ModelTexts::Change* const change = m_texts->changeSince(m_generation)) {
        replaceRows(change->first, change->removed, change->inserted);
        m_generation = m_texts->generation();
    } else {
        const TextSearch search = m_results.back().search;
        m_results.clear();
        narrow(search);
    }
}

/// Replaces source rows in the shown result and drops all other results.
void ContainsFilterModel::replaceRows(int first, int removed, int inserted)
{
    keepShownResultOnly();
    QVector<int>& rows = m_results.back().found.rows;
    const QVector<int> found = m_results.back().search.allIn(m_texts->texts(), first, first + inserted).rows;
    const auto [begin, end] = shownAmong(first, first + removed);
    if (inserted != removed)
        std::for_each(rows.begin() + end, rows.end(), [=](int& row) { row += inserted - removed; });
    rows.remove(begin, end - begin);
    rows.insert(begin, found.size(), 0);
    std::copy(found.begin(), found.end(), rows.begin() + begin);
}

/// Drops all results except the shown one. Also drops the look-aheads of that one, because they are out of date after
/// the texts have changed.
void ContainsFilterModel::keepShownResultOnly()
{
    m_results.erase(m_results.begin(), m_results.end() - 1);
    m_results.back().found.forgetLookAheads();
}

/// Returns the range of proxy rows whose source rows are in the range [`first`, `end`): the first one and the one after
/// the last.
std::pair<int, int> ContainsFilterModel::shownAmong(int first, int end) const
{
    if (!shownRows())
        return {first, std::min(end, rowCount())};
    const auto begin = shownRows()->begin();
    return {int(std::lower_bound(begin, shownRows()->end(), first) - begin),
            int(std::lower_bound(begin, shownRows()->end(), end) - begin)};
}

void ContainsFilterModel::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                        const QVector<int>& roles)
{
    if (!topLeft.isValid() || topLeft.parent().isValid() || m_isSourceChanging || !isCurrent())
        return;
    const auto [begin, end] = shownAmong(topLeft.row(), bottomRight.row() + 1);
    const QModelIndex first = index(begin, topLeft.column());
    const QModelIndex last = index(end - 1, bottomRight.column());
    if (begin < end && first.isValid() && last.isValid())
        Q_EMIT dataChanged(first, last, roles);
}

} // namespace zelmar::internal
