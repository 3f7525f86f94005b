#include "TableModel.h"

namespace gallery {

namespace {

// More characters than fit on a screen. Without a limit a view would lay out megabytes for every repaint.
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
}

void TableModel::setDocument(std::shared_ptr<TableDocument> document)
{
    const bool wasModified = isModified();
    beginResetModel();
    m_document = document ? std::move(document) : std::make_shared<TableDocument>();
    endResetModel();
    if (wasModified != isModified())
        Q_EMIT modifiedChanged(isModified());
}

void TableModel::markSaved()
{
    if (!isModified())
        return;
    m_document->markSaved();
    Q_EMIT modifiedChanged(false);
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
    if (!isCell(index))
        return {};
    switch (role) {
    case Qt::DisplayRole: // unabridged, because this role is copied
    case Qt::EditRole:
        return m_document->text(index.row(), index.column());
    case Qt::TextAlignmentRole: {
        const bool isNumber = columnKind(index.column()) == ColumnKind::Number;
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
    return isCell(index) ? flags | Qt::ItemIsEditable : flags;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!isCell(index) || role != Qt::EditRole)
        return false;
    const bool wasModified = isModified();
    if (!m_document->setText(index.row(), index.column(), value.toString()))
        return true;
    Q_EMIT dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    if (!wasModified)
        Q_EMIT modifiedChanged(true);
    return true;
}

bool TableModel::isCell(const QModelIndex& index) const
{
    return index.isValid() && checkIndex(index);
}

} // namespace gallery
