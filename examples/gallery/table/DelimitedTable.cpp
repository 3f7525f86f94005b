#include "DelimitedTable.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace gallery {

namespace {

constexpr quint64 CopyBlock = 1U << 20;

bool isLineEnd(char byte)
{
    return byte == '\n' || byte == '\r';
}

/// Returns whether a character must be quoted. Both separators of CSV must, because the unused one could otherwise be
/// detected as the separator of the header.
bool needsQuotes(QChar c)
{
    switch (c.unicode()) {
    case '"':
    case ',':
    case ';':
    case '\t':
    case '\n':
    case '\r':
        return true;
    default:
        return false;
    }
}

/// Returns the position after the closing quote of the cell at \a begin, or \a end if there is no closing quote.
const char* quotedEnd(const char* begin, const char* end)
{
    const char* pos = begin + 1;
    while (pos != end) {
        pos = static_cast<const char*>(std::memchr(pos, '"', size_t(end - pos)));
        if (pos == nullptr)
            return end;
        if (++pos == end || *pos != '"')
            return pos;
        ++pos;
    }
    return end;
}

const char* afterLineEnd(const char* pos, const char* end)
{
    if (pos == end)
        return pos;
    return *pos == '\r' && pos + 1 != end && pos[1] == '\n' ? pos + 2 : pos + 1;
}

/// Calls \a addCell(begin, end) for each cell of the line at \a pos.
/// Returns the start of the next line, or null if \a addCell returned false.
template <typename AddCell>
const char* scanLine(const DelimitedSyntax& syntax, const char* pos, const char* end, AddCell addCell)
{
    for (;;) {
        const char* cellEnd = syntax.cellEnd(pos, end);
        if (!addCell(pos, cellEnd))
            return nullptr;
        if (cellEnd == end || *cellEnd != syntax.separator())
            return afterLineEnd(cellEnd, end);
        pos = cellEnd + 1;
    }
}

/// Detects the separator in the header. Quotes open only where a cell may start, so that 5" does not hide the rest.
char detectSeparator(ByteRange text)
{
    qint64 commas = 0;
    qint64 semicolons = 0;
    bool cellStarts = true;
    for (const char* pos = text.begin; pos != text.end && !isLineEnd(*pos);) {
        if (cellStarts && *pos == '"') {
            pos = quotedEnd(pos, text.end);
            cellStarts = false;
            continue;
        }
        commas += *pos == ',' ? 1 : 0;
        semicolons += *pos == ';' ? 1 : 0;
        cellStarts = *pos == ',' || *pos == ';';
        ++pos;
    }
    return semicolons > commas ? ';' : ',';
}

QString readDelimited(TextBytes text, char separator, const ProgressCallback& progress,
                      std::shared_ptr<const TableSource>& source)
{
    const ByteRange all = text.all();
    auto syntax = std::make_unique<DelimitedSyntax>(separator);
    TableIndex index(loadMemoryLimit() - std::min(loadMemoryLimit(), all.size()));
    ProgressStage stage(progress, 50, 99, all.size());
    const auto addHeaderCell = [&](const char* begin, const char* end) {
        return stage.reached(quint64(begin - all.begin))
               && index.addHeaderCell(quint64(begin - all.begin), quint64(end - begin));
    };
    quint64 column = 0;
    const auto addCell = [&](const char* begin, const char* end) {
        return stage.reached(quint64(begin - all.begin))
               && index.setCell(column++, quint64(begin - all.begin), quint64(end - begin));
    };
    const char* pos = all.begin + text.start;
    if (pos != all.end)
        pos = scanLine(*syntax, pos, all.end, addHeaderCell);
    for (; pos != nullptr && pos != all.end; column = 0) {
        if (!index.beginRow(quint64(pos - all.begin)))
            break;
        pos = scanLine(*syntax, pos, all.end, addCell);
    }
    if (pos != all.end || !index.finish(all.size()))
        return index.error().isEmpty() ? cancelledText() : index.error();
    source = std::make_shared<TableSource>(std::move(text), std::move(syntax), std::move(index));
    return {};
}

/// A writer that writes a table in the delimited format from which it was read and changes only the edited cells.
class PatchWriter
{
public:
    PatchWriter(const TableDocument& document, QIODevice& device)
        : m_document(document)
        , m_source(document.source())
        , m_device(device)
        , m_keepsLatin1(canKeepLatin1())
    {
    }

    void write()
    {
        const TableIndex& index = m_source.index();
        quint64 done = transcodes() ? m_source.text().start : 0;
        const QVector<int> rows = m_document.editedRows();
        for (int row : rows) {
            copy(done, index.rowOffset(row));
            writeRow(row);
            done = index.rowOffset(row + 1);
        }
        copy(done, m_source.text().all().size());
    }

private:
    /// Returns whether the file will be read as Latin-1 again, which requires bytes that are not valid UTF-8.
    [[nodiscard]] bool canKeepLatin1() const
    {
        const TextBytes& text = m_source.text();
        if (!text.isLatin1())
            return false;
        const QList<QString> edits = m_document.editedTexts();
        const bool fits = std::all_of(edits.begin(), edits.end(), [](const QString& edit) {
            return std::all_of(edit.begin(), edit.end(), [](QChar c) { return c.unicode() < 0x100; });
        });
        const QVector<int> rows = m_document.editedRows();
        return fits && std::none_of(rows.begin(), rows.end(), [&](int row) {
                   return m_source.index().rowOffset(row) <= text.firstNonUtf8
                          && text.firstNonUtf8 < m_source.index().rowOffset(row + 1);
               });
    }

    [[nodiscard]] bool transcodes() const { return m_source.text().isLatin1() && !m_keepsLatin1; }

    void copy(quint64 from, quint64 to)
    {
        const char* bytes = m_source.text().all().begin;
        for (; from < to; from += std::min(CopyBlock, to - from))
            copyBlock({bytes + from, bytes + from + std::min(CopyBlock, to - from)});
    }

    void copyBlock(ByteRange block)
    {
        if (transcodes())
            m_device.write(m_source.text().decoded(block).toUtf8());
        else
            m_device.write(block.begin, qint64(block.size()));
    }

    void writeRow(int row)
    {
        const TableIndex& index = m_source.index();
        const int count = m_document.cellCount(row);
        for (int column = 0; column < count; ++column) {
            if (column > 0)
                m_device.putChar(m_source.syntax().separator());
            if (m_document.isEdited(row, column) || !index.hasCell(row, column) || isUnclosed(row, column))
                writeText(row, column, count);
            else
                copyBlock(m_source.rawCell(row, column));
        }
        const char* lineEnd = m_source.rawCell(row, index.cellCount(row) - 1).end;
        copyBlock({lineEnd, m_source.text().all().begin + index.rowOffset(row + 1)});
    }

    /// Returns whether the cell may lack its closing quote, which would make it swallow the text after it. All such
    /// cells have an odd number of quotes; other cells with an odd number are merely rewritten.
    [[nodiscard]] bool isUnclosed(int row, int column) const
    {
        const ByteRange raw = m_source.rawCell(row, column);
        return raw.size() > 0 && *raw.begin == '"' && std::count(raw.begin, raw.end, '"') % 2 == 1;
    }

    void writeText(int row, int column, int count)
    {
        const QString text = m_source.syntax().escaped(m_document.text(row, column));
        if (count == 1 && text.isEmpty())
            m_device.write("\"\"");
        else
            m_device.write(m_keepsLatin1 ? text.toLatin1() : text.toUtf8());
    }

    const TableDocument& m_document;
    const TableSource& m_source;
    QIODevice& m_device;
    bool m_keepsLatin1;
};

/// Writes a row whose cells \a textAt(column) returns. Does not write an empty line for an empty cell, because not
/// every program reads it as a cell.
template <typename TextAt>
void writeLine(const DelimitedSyntax& syntax, int count, QIODevice& device, TextAt textAt)
{
    QByteArray line;
    for (int column = 0; column < count; ++column) {
        if (column > 0)
            line += syntax.separator();
        line += syntax.escaped(textAt(column)).toUtf8();
    }
    if (line.isEmpty())
        line = "\"\"";
    device.write(line + '\n');
}

void writeDelimited(const TableDocument& document, char separator, QIODevice& device)
{
    if (document.source().syntax().separator() == separator) {
        PatchWriter(document, device).write();
        return;
    }
    if (document.columnCount() == 0)
        return;
    const DelimitedSyntax syntax(separator);
    writeLine(syntax, document.source().index().headerCount(), device,
              [&](int column) { return document.headerText(column); });
    for (int row = 0; row < document.rowCount(); ++row) {
        writeLine(syntax, document.cellCount(row), device, [&](int column) { return document.text(row, column); });
    }
}

} // namespace

const char* DelimitedSyntax::cellEnd(const char* begin, const char* end) const
{
    const char* pos = begin;
    if (pos != end && *pos == '"')
        pos = quotedEnd(pos, end);
    while (pos != end && *pos != m_separator && !isLineEnd(*pos))
        ++pos;
    return pos;
}

QString DelimitedSyntax::unescaped(const QString& raw) const
{
    if (!raw.startsWith(QLatin1Char('"')))
        return raw;
    QString text;
    text.reserve(raw.size());
    int pos = 1;
    for (; pos < raw.size(); ++pos) {
        if (raw[pos] == QLatin1Char('"') && (++pos == raw.size() || raw[pos] != QLatin1Char('"')))
            break;
        text += raw[pos];
    }
    // The text after the closing quote does not conform to the standard, but is data.
    return text + raw.mid(pos);
}

QString DelimitedSyntax::escaped(const QString& text) const
{
    // Many programs trim cells, and a cell that starts with U+FEFF may be the first in the file.
    const bool quoted = std::any_of(text.begin(), text.end(), needsQuotes)
                        || (!text.isEmpty() && (text.front().isSpace() || text.back().isSpace()))
                        || text.startsWith(QChar(QChar::ByteOrderMark));
    if (!quoted)
        return text;
    QString doubled = text;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

QString readCsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source)
{
    const char separator = detectSeparator({text.all().begin + text.start, text.all().end});
    return readDelimited(std::move(text), separator, progress, source);
}

QString readTsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source)
{
    return readDelimited(std::move(text), '\t', progress, source);
}

void writeCsv(const TableDocument& document, QIODevice& device)
{
    writeDelimited(document, document.source().syntax().separator() == ';' ? ';' : ',', device);
}

void writeTsv(const TableDocument& document, QIODevice& device)
{
    writeDelimited(document, '\t', device);
}

} // namespace gallery
