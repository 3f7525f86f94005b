#include "TableModel.h"

#include <QRect>

#include <utility>

namespace gallery {

namespace {

// This number of characters does not fit on a screen. Without a limit a view would lay out megabytes for every repaint.
constexpr int LongestShownText = 1000;

} // namespace

QString shownText(const QString& text)
{
    return text.size() <= LongestShownText ? text : text.left(LongestShownText) + QChar(0x2026);
}

TableModel::TableModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_document(std::make_shared<TableDocument>())
{
    connect(&m_edits, &QUndoStack::indexChanged, this, &TableModel::tellWhetherModified);
}

TableModel::~TableModel()
{
    m_edits.disconnect(); // because it emits signals while it is being destroyed
}

void TableModel::setDocument(std::shared_ptr<TableDocument> document)
{
    m_savedState = 0;
    m_edits.clear();
    beginResetModel();
    m_document = document ? std::move(document) : std::make_shared<TableDocument>();
    endResetModel();
}

int TableModel::state() const
{
    const EditCommand* last = editAt(m_edits.index() - 1);
    return last ? last->state() : 0;
}

void TableModel::markSaved(int state)
{
    m_savedState = state;
    m_document->markSaved();
    tellWhetherModified();
}

void TableModel::tellWhetherModified()
{
    if (std::exchange(m_toldModified, isModified()) != isModified())
        Q_EMIT modifiedChanged(isModified());
}

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_document->rowCount();
}

int TableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_document->columnCount();
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    if (!hasIndex(index.row(), index.column()))
        return {};
    switch (role) {
    case Qt::DisplayRole: // unabridged, because this role is copied
    case Qt::EditRole:
        return m_document->text(index.row(), index.column());
    case Qt::TextAlignmentRole: {
        const bool isNumber = m_document->columnKind(index.column()) == ColumnKind::Number;
        return int((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isNamed = orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
                         && section < m_document->columnCount() && !m_document->headerText(section).isEmpty();
    if (isNamed)
        return shownText(m_document->headerText(section));
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return hasIndex(index.row(), index.column()) ? flags | Qt::ItemIsEditable : flags;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!hasIndex(index.row(), index.column()) || role != Qt::EditRole)
        return false;
    if (value.toString() != m_document->text(index.row(), index.column()))
        edit({{index.row(), index.column(), value.toString()}});
    return true;
}

void TableModel::clear(const QModelIndexList& cells)
{
    QVector<CellText> edited;
    for (const QModelIndex& cell : cells) {
        if (hasIndex(cell.row(), cell.column()) && !m_document->text(cell.row(), cell.column()).isEmpty())
            edited.append({cell.row(), cell.column(), QString()});
    }
    if (!edited.isEmpty())
        edit(std::move(edited));
}

void TableModel::edit(QVector<CellText> cells)
{
    m_edits.push(new EditCommand(*this, std::move(cells), ++m_lastState));
}

/// Returns the edit that leads from the index in the stack to the next one, or null if there is none.
const EditCommand* TableModel::editAt(int index) const
{
    return static_cast<const EditCommand*>(m_edits.command(index));
}

QModelIndex TableModel::undo()
{
    const EditCommand* undone = editAt(m_edits.index() - 1);
    m_edits.undo();
    return undone ? index(undone->firstCell().row, undone->firstCell().column) : QModelIndex();
}

QModelIndex TableModel::redo()
{
    const EditCommand* redone = editAt(m_edits.index());
    m_edits.redo();
    return redone ? index(redone->firstCell().row, redone->firstCell().column) : QModelIndex();
}

/// Exchanges the texts of the cells with the given ones.
void TableModel::swapTexts(QVector<CellText>& cells)
{
    QRect changed;
    for (CellText& cell : cells) {
        QString former = m_document->text(cell.row, cell.column);
        m_document->setText(cell.row, cell.column, cell.text);
        cell.text = std::move(former);
        changed |= QRect(cell.column, cell.row, 1, 1);
    }
    Q_EMIT dataChanged(index(changed.top(), changed.left()), index(changed.bottom(), changed.right()),
                       {Qt::DisplayRole, Qt::EditRole});
}

} // namespace gallery
