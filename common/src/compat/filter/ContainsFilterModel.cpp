#include "compat/filter/ContainsFilterModel.h"

#include "compat/filter/ModelTexts.h"

#include <algorithm>
#include <numeric>

namespace zelmar {

namespace {

/// How many numbers, counted in rows of the model, the results may hold together before old ones are dropped.
constexpr qint64 keptResults = 4;

} // namespace

ContainsFilterModel::ContainsFilterModel(QObject* parent)
    : QAbstractProxyModel(parent)
{
}

void ContainsFilterModel::setSourceModel(QAbstractItemModel* model)
{
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
    beginResetModel();
    m_column = column;
    m_role = role;
    followModel();
    endResetModel();
}

/// With all rows shown.
void ContainsFilterModel::followModel()
{
    m_results.clear();
    if (m_texts)
        disconnect(m_texts, nullptr, this, nullptr);
    m_texts.clear();
    if (!sourceModel())
        return;
    m_texts = &ModelTexts::of(*sourceModel(), m_column, m_role);
    connect(m_texts, SIGNAL(aboutToChange()), this, SLOT(onAboutToChange()));
    connect(m_texts, SIGNAL(replaced(int, int, int)), this, SLOT(onReplaced(int, int, int)));
    connect(m_texts, SIGNAL(reset()), this, SLOT(onReset()));
    connect(m_texts, SIGNAL(rewritten(int, int)), this, SLOT(onRewritten(int, int)));
    connect(sourceModel(), SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)), this,
            SLOT(onDataChanged(QModelIndex, QModelIndex, QVector<int>)), Qt::UniqueConnection);
    connect(sourceModel(), SIGNAL(destroyed()), this, SLOT(onModelDestroyed()), Qt::UniqueConnection);
}

void ContainsFilterModel::setContainedText(const QString& text, Qt::CaseSensitivity caseSensitivity)
{
    if (text.isEmpty() ? m_results.empty()
                       : !m_results.empty() && m_results.back().search.text() == text
                             && m_results.back().search.caseSensitivity() == caseSensitivity)
        return;
    beginResetModel();
    const auto narrows = [&](const Result& result) {
        return result.search.caseSensitivity() == caseSensitivity
               && text.contains(result.search.text(), caseSensitivity);
    };
    while (!m_results.empty() && !narrows(m_results.back()))
        m_results.pop_back();
    if (!text.isEmpty() && m_texts && (m_results.empty() || m_results.back().search.text() != text))
        narrow(TextSearch(text, caseSensitivity));
    endResetModel();
}

void ContainsFilterModel::narrow(const TextSearch& search)
{
    const QStringList& texts = m_texts->texts();
    m_results.push_back({search, m_results.empty() ? search.allIn(texts, 0, texts.size())
                                                   : search.allAmong(m_results.back().found, texts)});
    if (m_results.size() > 1)
        m_results[m_results.size() - 2].found.forgetWhatFollows(); // which has done its work
    dropOldResults();
}

void ContainsFilterModel::dropOldResults()
{
    const auto held = [this] {
        return std::accumulate(m_results.begin(), m_results.end(), qint64(0), [](qint64 sum, const Result& result) {
            return sum + result.found.rows.size() + result.found.followers.size()
                   + qint64(result.found.continuations.size()) * qint64(sizeof(TextSearch::Continuation) / sizeof(int));
        });
    };
    while (m_results.size() > 1 && held() > keptResults * m_texts->texts().size())
        m_results.erase(m_results.begin());
}

/// Null: all.
const QVector<int>* ContainsFilterModel::shownRows() const
{
    return m_results.empty() ? nullptr : &m_results.back().found.rows;
}

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

QModelIndex ContainsFilterModel::mapToSource(const QModelIndex& index) const
{
    if (!index.isValid() || !sourceModel())
        return {};
    return sourceModel()->index(shownRows() ? shownRows()->value(index.row(), -1) : index.row(), index.column());
}

QModelIndex ContainsFilterModel::mapFromSource(const QModelIndex& index) const
{
    if (!index.isValid() || index.parent().isValid())
        return {};
    if (!shownRows())
        return createIndex(index.row(), index.column());
    const auto found = std::lower_bound(shownRows()->begin(), shownRows()->end(), index.row());
    if (found == shownRows()->end() || *found != index.row())
        return {};
    return createIndex(int(found - shownRows()->begin()), index.column());
}

void ContainsFilterModel::onAboutToChange()
{
    beginResetModel();
}

void ContainsFilterModel::onReplaced(int first, int removed, int inserted)
{
    if (!m_results.empty())
        replaceRows(first, removed, inserted);
    endResetModel();
}

/// In the shown result, which is the only one left then.
void ContainsFilterModel::replaceRows(int first, int removed, int inserted)
{
    keepShownResultOnly();
    QVector<int>& rows = m_results.back().found.rows;
    m_results.back().found.forgetWhatFollows(); // those of the new rows are not known
    const QVector<int> found = m_results.back().search.allIn(m_texts->texts(), first, first + inserted).rows;
    const auto [begin, end] = shownAmong(first, first + removed);
    std::for_each(rows.begin() + end, rows.end(), [=](int& row) { row += inserted - removed; });
    rows.remove(begin, end - begin);
    rows.insert(begin, found.size(), 0);
    std::copy(found.begin(), found.end(), rows.begin() + begin);
}

void ContainsFilterModel::keepShownResultOnly()
{
    m_results.erase(m_results.begin(), m_results.end() - 1);
}

/// The rows here, first and behind the last one, that are rows of the model from `first` to before `end`.
std::pair<int, int> ContainsFilterModel::shownAmong(int first, int end) const
{
    if (!shownRows())
        return {first, end};
    const auto begin = shownRows()->begin();
    return {int(std::lower_bound(begin, shownRows()->end(), first) - begin),
            int(std::lower_bound(begin, shownRows()->end(), end) - begin)};
}

void ContainsFilterModel::onReset()
{
    if (!m_results.empty()) {
        const TextSearch search = m_results.back().search;
        m_results.clear();
        narrow(search);
    }
    endResetModel();
}

void ContainsFilterModel::onRewritten(int first, int last)
{
    if (m_results.empty())
        return;
    const QVector<int> found = m_results.back().search.allIn(m_texts->texts(), first, last + 1).rows;
    const auto [begin, end] = shownAmong(first, last + 1);
    if (shownRows()->mid(begin, end - begin) == found)
        return keepShownResultOnly();
    beginResetModel();
    replaceRows(first, last + 1 - first, last + 1 - first);
    endResetModel();
}

void ContainsFilterModel::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                        const QVector<int>& roles)
{
    if (!topLeft.isValid() || topLeft.parent().isValid())
        return;
    const auto [begin, end] = shownAmong(topLeft.row(), bottomRight.row() + 1);
    if (begin < end)
        Q_EMIT dataChanged(index(begin, topLeft.column()), index(end - 1, bottomRight.column()), roles);
}

void ContainsFilterModel::onModelDestroyed()
{
    beginResetModel();
    m_results.clear();
    endResetModel();
}

} // namespace zelmar
