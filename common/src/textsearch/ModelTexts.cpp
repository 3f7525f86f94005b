#include "textsearch/ModelTexts_p.h"

#include <QAbstractItemModel>
#include <QMetaMethod>
#include <QStringListModel>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace zelmar::internal {

namespace {

/// Moves the string out of the variant; copying would touch a million reference counts.
QString takeText(QVariant&& value)
{
    if (value.userType() == QMetaType::QString)
        return std::move(*static_cast<QString*>(value.data()));
    return value.toString();
}

/// The maximum number of unchanged rows that are read again because rows have moved. If more rows would have to be
/// read, the cache is dropped.
constexpr int maxSuspectRows = 1000;

} // namespace

ModelTexts::ModelTexts(QAbstractItemModel& model, int column, int role)
    : QObject(&model)
    , m_model(&model)
    , m_column(column)
    , m_role(role)
{
    connectModel();
}

ModelTexts& ModelTexts::of(QAbstractItemModel& model, int column, int role)
{
    ModelTexts* const known = find(model, column, role);
    return known ? *known : *new ModelTexts(model, column, role);
}

ModelTexts* ModelTexts::find(const QAbstractItemModel& model, int column, int role)
{
    const auto known = model.findChildren<ModelTexts*>(QString(), Qt::FindDirectChildrenOnly);
    const auto found = std::find_if(known.begin(), known.end(), [=](const ModelTexts* texts) {
        return texts->m_column == column && texts->m_role == role;
    });
    return found == known.end() ? nullptr : *found;
}

void ModelTexts::connectModel()
{
    using Model = QAbstractItemModel;
    const auto connectAll = [this](auto slot, auto... signals) { (connect(m_model, signals, this, slot), ...); };
    connect(m_model, &Model::dataChanged, this, &ModelTexts::onDataChanged);
    connect(m_model, &Model::rowsInserted, this, &ModelTexts::onRowsInserted);
    connect(m_model, &Model::rowsRemoved, this, &ModelTexts::onRowsRemoved);
    connect(m_model, &Model::rowsMoved, this, &ModelTexts::onRowsMoved);
    connectAll(&ModelTexts::onAboutToChange, &Model::rowsAboutToBeInserted, &Model::rowsAboutToBeRemoved,
               &Model::rowsAboutToBeMoved, &Model::columnsAboutToBeInserted, &Model::columnsAboutToBeRemoved,
               &Model::columnsAboutToBeMoved, &Model::layoutAboutToBeChanged, &Model::modelAboutToBeReset);
    connectAll(&ModelTexts::onReset, &Model::columnsInserted, &Model::columnsRemoved, &Model::columnsMoved,
               &Model::layoutChanged, &Model::modelReset);
}

bool ModelTexts::isListenedTo() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&ModelTexts::changed));
}

/// Returns whether a change of `roles` may change the texts. Qt::DisplayRole and Qt::EditRole count as one, because
/// most models return the same text for both and some name only one of them in dataChanged().
bool ModelTexts::concerns(const QVector<int>& roles) const
{
    const auto isText = [](int role) { return role == Qt::DisplayRole || role == Qt::EditRole; };
    return roles.isEmpty() || roles.contains(m_role)
           || (isText(m_role) && std::any_of(roles.begin(), roles.end(), isText));
}

// Reading

QStringList ModelTexts::texts()
{
    if (!m_model)
        return {};
    if (isValid())
        return m_texts;
    if (m_isRead && m_changesUnderWay == 0)
        drop(); // the number of rows has changed without a signal
    const quint64 generation = m_generation;
    QStringList texts = readAll();
    if (m_changesUnderWay > 0 || generation != m_generation)
        return texts;
    keep(std::move(texts));
    return m_texts;
}

bool ModelTexts::isValid() const
{
    return m_isRead && m_changesUnderWay == 0 && m_model && m_texts.size() == m_model->rowCount();
}

bool ModelTexts::isCurrent(quint64 generation) const
{
    return generation == m_generation && m_changesUnderWay == 0 && (!m_isRead || isValid());
}

const ModelTexts::Change* ModelTexts::changeSince(quint64 generation) const
{
    return m_isIncremental && generation == m_generationBefore && isValid() ? &m_lastChange : nullptr;
}

/// Returns whether the texts are those of QStringListModel::stringList(). A class derived from QStringListModel may
/// return other texts from data().
bool ModelTexts::isListOfStrings() const
{
    const QAbstractItemModel& model = *m_model;
    return typeid(model) == typeid(QStringListModel) && m_column == 0
           && (m_role == Qt::DisplayRole || m_role == Qt::EditRole);
}

QString ModelTexts::textAt(int row) const
{
    const QModelIndex index = m_model->index(row, m_column);
    return index.isValid() ? takeText(m_model->data(index, m_role)) : QString();
}

QStringList ModelTexts::readRows(int first, int end) const
{
    QStringList texts;
    texts.reserve(end - first);
    for (int row = first; row < end; ++row) {
        texts.append(QString()); // An empty string has no reference count to increment, unlike a copy of the text.
        texts.last() = textAt(row);
    }
    return texts;
}

QStringList ModelTexts::readAll() const
{
    return isListOfStrings() ? static_cast<const QStringListModel&>(*m_model).stringList()
                             : readRows(0, m_model->rowCount());
}

void ModelTexts::keep(QStringList texts)
{
    m_texts = std::move(texts);
    m_isRead = true;
    m_movedUp = 0;
    m_movedDown = 0;
    if (!isListOfStrings())
        shareWithTwin();
}

/// Shares equal strings with the cache of the twin role, because most models return the same text for both. The twin
/// role of Qt::DisplayRole is Qt::EditRole, and that of all other roles is Qt::DisplayRole.
void ModelTexts::shareWithTwin()
{
    const int otherRole = m_role == Qt::DisplayRole ? Qt::EditRole : Qt::DisplayRole;
    const ModelTexts* const twin = find(*m_model, m_column, otherRole);
    if (!twin || !twin->m_isRead)
        return;
    bool isSame = m_texts.size() == twin->m_texts.size();
    for (int row = 0; row < qMin(m_texts.size(), twin->m_texts.size()); ++row) {
        const QString& text = twin->m_texts.at(row);
        if (m_texts.at(row).isSharedWith(text))
            continue;
        if (m_texts.at(row) == text)
            m_texts[row] = text;
        else
            isSame = false;
    }
    if (isSame)
        m_texts = twin->m_texts;
}

void ModelTexts::drop()
{
    m_isRead = false;
    m_isIncremental = false;
    m_texts.clear();
    ++m_generation;
}

// Inserted, removed and moved rows

void ModelTexts::onAboutToChange()
{
    m_isAlone = m_changesUnderWay == 0;
    ++m_changesUnderWay;
    if (!m_isAlone)
        return;
    m_isIncremental = false;
    m_generationBefore = m_generation;
    ++m_generation; // texts that are read during the change belong to neither generation around it
    Q_EMIT aboutToChange();
}

void ModelTexts::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    takeOver(parent.isValid() ? Change() : Change{first, 0, last - first + 1});
}

void ModelTexts::onRowsRemoved(const QModelIndex& parent, int first, int last)
{
    takeOver(parent.isValid() ? Change() : Change{first, last - first + 1, 0});
}

void ModelTexts::onRowsMoved(const QModelIndex& source, int first, int last, const QModelIndex& destination, int row)
{
    if (source.isValid() || destination.isValid())
        return onReset();
    const int from = std::min(first, row);
    const int count = std::max(last, row - 1) - from + 1;
    takeOver({from, count, count});
}

void ModelTexts::onReset()
{
    endChange();
    if (m_changesUnderWay > 0)
        return;
    drop();
    Q_EMIT changed();
}

/// Ends one change and returns whether it was the only one since it was announced.
bool ModelTexts::endChange()
{
    const bool wasAlone = m_changesUnderWay == 1 && m_isAlone;
    m_isAlone = false;
    m_changesUnderWay = std::max(0, m_changesUnderWay - 1); // 0 if the change began before this object
    return wasAlone;
}

void ModelTexts::takeOver(const Change& change)
{
    const bool wasAlone = endChange();
    if (m_changesUnderWay > 0)
        return;
    if (wasAlone && isListenedTo() && addsUp(change))
        replaceRows(change);
    else
        drop();
    Q_EMIT changed();
}

bool ModelTexts::addsUp(const Change& change) const
{
    return m_isRead && change.first >= 0 && change.first + change.removed <= m_texts.size()
           && m_texts.size() - change.removed + change.inserted == m_model->rowCount();
}

void ModelTexts::replaceRows(const Change& change)
{
    const quint64 generation = m_generation;
    const QStringList inserted = readRows(change.first, change.first + change.inserted);
    if (m_generation != generation || m_changesUnderWay > 0)
        return drop(); // data() has changed the model
    if (change.first + change.removed < m_texts.size())
        noteMoves(change);
    resize(change.first, change.inserted - change.removed);
    std::copy(inserted.begin(), inserted.end(), m_texts.begin() + change.first);
    m_lastChange = change;
    m_isIncremental = true;
    ++m_generation;
}

/// Inserts `more` rows at `row`, or removes -`more` rows if the number is negative.
void ModelTexts::resize(int row, int more)
{
    const int size = m_texts.size();
    for (int i = 0; i < more; ++i)
        m_texts.append(QString());
    if (more > 0)
        std::rotate(m_texts.begin() + row, m_texts.begin() + size, m_texts.end());
    else
        m_texts.erase(m_texts.begin() + row, m_texts.begin() + row - more);
}

void ModelTexts::noteMoves(const Change& change)
{
    const bool isFirst = m_movedUp == 0 && m_movedDown == 0;
    m_firstMoved = isFirst ? change.first : std::min(m_firstMoved, change.first);
    m_movedUp = std::min(m_movedUp + change.removed, maxSuspectRows + 1);
    m_movedDown = std::min(m_movedDown + change.inserted, maxSuspectRows + 1);
}

// Changed texts

void ModelTexts::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    const bool isAll = !topLeft.isValid(); // some models report all rows in this way
    if (!isAll
        && (topLeft.parent().isValid() || m_column < topLeft.column() || m_column > bottomRight.column()
            || !concerns(roles)))
        return;
    m_isAlone = false; // the change under way may have read the former text
    if (m_changesUnderWay > 0 || !m_isRead)
        return;
    const Change rows = suspectRows(topLeft.row(), bottomRight.row());
    if (!isAll && isListenedTo() && isValid()
        && rows.inserted <= bottomRight.row() - topLeft.row() + 1 + maxSuspectRows)
        return readAgain(rows);
    drop();
    Q_EMIT changed();
}

/// Returns the rows that the row numbers `first` to `last` may refer to. The numbers may be those before rows have
/// moved.
ModelTexts::Change ModelTexts::suspectRows(int first, int last) const
{
    const bool hasMoved = (m_movedUp > 0 || m_movedDown > 0) && last >= m_firstMoved;
    const int from = std::max(0, hasMoved ? first - m_movedUp : first);
    const int end = std::min(int(m_texts.size()), (hasMoved ? last + m_movedDown : last) + 1);
    const int count = std::max(0, end - from);
    return {from, count, count};
}

void ModelTexts::readAgain(const Change& rows)
{
    const quint64 generation = m_generation;
    const QStringList now = readRows(rows.first, rows.first + rows.inserted);
    if (m_generation != generation || m_changesUnderWay > 0) {
        drop(); // data() has changed the model
    } else {
        if (std::equal(now.begin(), now.end(), m_texts.cbegin() + rows.first))
            return;
        std::copy(now.begin(), now.end(), m_texts.begin() + rows.first);
        m_lastChange = rows;
        m_isIncremental = true;
        m_generationBefore = m_generation;
        ++m_generation;
    }
    Q_EMIT changed();
}

void ModelTexts::refresh(int row)
{
    if (row >= 0 && isValid() && row < m_texts.size())
        readAgain({row, 1, 1});
}

} // namespace zelmar::internal
