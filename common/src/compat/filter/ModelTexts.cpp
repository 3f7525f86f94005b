#include "compat/filter/ModelTexts.h"

#include <QAbstractItemModel>
#include <QMetaMethod>
#include <QStringListModel>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace zelmar {

namespace {

/// Moved out where it is a text already: to count a million references up and down takes time.
QString takeText(QVariant&& value)
{
    if (value.userType() == QMetaType::QString)
        return std::move(*static_cast<QString*>(value.data()));
    return value.toString();
}

} // namespace

ModelTexts::ModelTexts(QAbstractItemModel& model, int column, int role)
    : QObject(&model)
    , m_model(model)
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
    connect(&m_model, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)), this,
            SLOT(onDataChanged(QModelIndex, QModelIndex, QVector<int>)));
    connect(&m_model, SIGNAL(rowsInserted(QModelIndex, int, int)), this, SLOT(onRowsInserted(QModelIndex, int, int)));
    connect(&m_model, SIGNAL(rowsRemoved(QModelIndex, int, int)), this, SLOT(onRowsRemoved(QModelIndex, int, int)));
    connect(&m_model, SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)), this,
            SLOT(onRowsMoved(QModelIndex, int, int, QModelIndex, int)));
    for (const char* signal :
         {SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)), SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)),
          SIGNAL(rowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)),
          SIGNAL(columnsAboutToBeInserted(QModelIndex, int, int)),
          SIGNAL(columnsAboutToBeRemoved(QModelIndex, int, int)),
          SIGNAL(columnsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(layoutAboutToBeChanged()),
          SIGNAL(modelAboutToBeReset())})
        connect(&m_model, signal, this, SIGNAL(aboutToChange()));
    for (const char* signal :
         {SIGNAL(columnsInserted(QModelIndex, int, int)), SIGNAL(columnsRemoved(QModelIndex, int, int)),
          SIGNAL(columnsMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(layoutChanged()), SIGNAL(modelReset())})
        connect(&m_model, signal, this, SLOT(onReset()));
}

const QStringList& ModelTexts::texts()
{
    if (!m_isRead) {
        if (isListOfStrings()) {
            m_texts = static_cast<const QStringListModel&>(m_model).stringList();
        } else {
            m_texts = readAll();
            shareWithTwin();
        }
        m_isRead = true;
    }
    return m_texts;
}

/// Whether data() can only be the model's list itself: a class derived from it may answer something else.
bool ModelTexts::isListOfStrings() const
{
    return typeid(m_model) == typeid(QStringListModel) && m_column == 0
           && (m_role == Qt::DisplayRole || m_role == Qt::EditRole);
}

QStringList ModelTexts::readAll() const
{
    const int rows = m_model.rowCount();
    QStringList texts;
    texts.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        texts.append(QString()); // which is not counted, as a copy would be
        texts.last() = textAt(row);
    }
    return texts;
}

/// Most models show the text that they let edit: then it is kept once.
void ModelTexts::shareWithTwin()
{
    const int otherRole = m_role == Qt::DisplayRole ? Qt::EditRole : Qt::DisplayRole;
    const ModelTexts* const twin = find(m_model, m_column, otherRole);
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
        m_texts = twin->m_texts; // until either changes
}

QString ModelTexts::textAt(int row) const
{
    const QModelIndex index = m_model.index(row, m_column);
    return index.isValid() ? takeText(m_model.data(index, m_role)) : QString();
}

void ModelTexts::forget()
{
    m_isRead = false;
    m_texts.clear();
}

void ModelTexts::read(int first, int end)
{
    for (int row = first; row < end; ++row)
        m_texts[row] = textAt(row);
}

bool ModelTexts::isListenedTo() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&ModelTexts::reset));
}

/// Most models have one text for both roles, and some name only one of them when it changes.
bool ModelTexts::concerns(const QVector<int>& roles) const
{
    const auto isText = [](int role) { return role == Qt::DisplayRole || role == Qt::EditRole; };
    return roles.isEmpty() || roles.contains(m_role)
           || (isText(m_role) && std::any_of(roles.begin(), roles.end(), isText));
}

void ModelTexts::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    if (topLeft.parent().isValid() || m_column < topLeft.column() || m_column > bottomRight.column()
        || !concerns(roles))
        return;
    if (!isListenedTo())
        return forget();
    if (m_isRead)
        read(topLeft.row(), bottomRight.row() + 1);
    Q_EMIT rewritten(topLeft.row(), bottomRight.row());
}

void ModelTexts::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    if (parent.isValid())
        replace(0, 0, 0);
    else
        replace(first, 0, last - first + 1);
}

void ModelTexts::onRowsRemoved(const QModelIndex& parent, int first, int last)
{
    if (parent.isValid())
        replace(0, 0, 0);
    else
        replace(first, last - first + 1, 0);
}

void ModelTexts::onRowsMoved(const QModelIndex& source, int first, int last, const QModelIndex& destination, int row)
{
    if (source.isValid() || destination.isValid())
        return onReset();
    const int from = std::min(first, row);
    const int count = std::max(last, row - 1) - from + 1;
    replace(from, count, count);
}

/// Makes room for `more` rows at `row`, or with less than 0 takes as many away.
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

void ModelTexts::replace(int first, int removed, int inserted)
{
    if (!isListenedTo())
        return forget();
    if (m_isRead) {
        resize(first, inserted - removed);
        read(first, first + inserted);
    }
    Q_EMIT replaced(first, removed, inserted);
}

void ModelTexts::onReset()
{
    forget();
    Q_EMIT reset();
}

} // namespace zelmar
