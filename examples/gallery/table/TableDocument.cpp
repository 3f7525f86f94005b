#include "TableDocument.h"

#include <limits>

namespace gallery {

TableDocument::TableDocument()
    : TableDocument(std::make_shared<TableSource>(), QStringLiteral("UTF-8"))
{
}

TableDocument::TableDocument(std::shared_ptr<const TableSource> source, QString encodingName)
    : m_source(std::move(source))
    , m_encodingName(std::move(encodingName))
{
}

int TableDocument::rowCount() const
{
    return columnCount() == 0 ? 0 : m_source->rowCount() - 1;
}

int TableDocument::cellCount(int row) const
{
    const int count = m_source->cellCount(row + 1);
    const auto next = m_edits.lowerBound({row, std::numeric_limits<int>::max()});
    const bool hasEdits = next != m_edits.cbegin() && std::prev(next).key().first == row;
    return hasEdits ? qMax(count, std::prev(next).key().second + 1) : count;
}

QString TableDocument::text(int row, int column) const
{
    const auto edit = m_edits.constFind({row, column});
    return edit != m_edits.cend() ? *edit : m_source->text(row + 1, column);
}

bool TableDocument::setText(int row, int column, const QString& text)
{
    const QString writable = decodeUtf8(text.toStdString());
    if (writable == this->text(row, column))
        return false;
    if (writable == m_source->text(row + 1, column))
        m_edits.remove({row, column});
    else
        m_edits.insert({row, column}, writable);
    return true;
}

ColumnKind TableDocument::columnKind(int column) const
{
    const auto known = m_kinds.constFind(column);
    if (known != m_kinds.cend())
        return *known;
    bool isNumber = false;
    const int samples = qMin(rowCount(), 1000);
    for (int sample = 0; sample < samples; ++sample) {
        const QString text = m_source->text(1 + int(qint64(sample) * rowCount() / samples), column);
        if (text.isEmpty())
            continue;
        text.toDouble(&isNumber);
        if (!isNumber)
            break;
    }
    return *m_kinds.insert(column, isNumber ? ColumnKind::Number : ColumnKind::Text);
}

void TableDocument::markSaved()
{
    m_encodingName = QStringLiteral("UTF-8");
}

} // namespace gallery
