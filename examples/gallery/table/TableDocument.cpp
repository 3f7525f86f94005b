#include "TableDocument.h"

#include "DelimitedTable.h"

#include <limits>

namespace gallery {

TableDocument::TableDocument()
    : TableDocument(std::make_shared<TableSource>(TextBytes(), std::make_unique<DelimitedSyntax>(','), TableIndex()))
{
}

TableDocument::TableDocument(std::shared_ptr<const TableSource> source)
    : m_source(std::move(source))
{
}

int TableDocument::cellCount(int row) const
{
    const int count = m_source->index().cellCount(row);
    auto edit = m_edits.lowerBound({row, std::numeric_limits<int>::max()});
    if (edit == m_edits.begin() || (--edit).key().first != row)
        return count;
    return qMax(count, edit.key().second + 1);
}

QString TableDocument::text(int row, int column) const
{
    const auto edit = m_edits.constFind({row, column});
    return edit != m_edits.cend() ? *edit : m_source->cellText(row, column);
}

bool TableDocument::setText(int row, int column, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const QString writable =
        text.isValidUtf16() ? text : decodeUtf8({bytes.constData(), bytes.constData() + bytes.size()});
    if (writable == this->text(row, column))
        return false;
    if (writable == m_source->cellText(row, column))
        m_edits.remove({row, column});
    else
        m_edits.insert({row, column}, writable);
    m_modified = true;
    return true;
}

bool TableDocument::hasEdits(int row) const
{
    const auto edit = m_edits.lowerBound({row, 0});
    return edit != m_edits.cend() && edit.key().first == row;
}

QVector<int> TableDocument::editedRows() const
{
    QVector<int> rows;
    for (auto edit = m_edits.keyBegin(); edit != m_edits.keyEnd(); ++edit) {
        if (rows.isEmpty() || rows.last() != edit->first)
            rows.append(edit->first);
    }
    return rows;
}

QString TableDocument::encodingName() const
{
    switch (m_source->text().encoding) {
    case TextEncoding::Latin1:
        return QStringLiteral("Latin-1");
    case TextEncoding::Utf16:
        return QStringLiteral("UTF-16");
    case TextEncoding::Utf8:
        break;
    }
    return QStringLiteral("UTF-8");
}

} // namespace gallery
