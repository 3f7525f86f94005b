#include "TableDocument.h"

namespace gallery {

TableDocument::TableDocument(std::shared_ptr<const TableSource> source, QString encodingName)
    : m_source(std::move(source))
    , m_encodingName(std::move(encodingName))
{
}

QString TableDocument::text(int row, int column) const
{
    const auto edit = m_edits.constFind({row, column});
    return edit != m_edits.cend() ? *edit : m_source->text(row + 1, column);
}

void TableDocument::setText(int row, int column, const QString& text)
{
    m_edits.insert({row, column}, decodeUtf8(text.toStdString()));
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

} // namespace gallery
