#include "DelimitedTable.h"

#include <QCoreApplication>
#include <QIODevice>

#include <algorithm>

namespace gallery {

namespace {

bool isLineEnd(char byte)
{
    return byte == '\n' || byte == '\r';
}

/// Calls \a append for each part of the text up to the closing quote.
/// Returns the position after the closing quote, or \a end if there is none.
template <typename Append>
const char* readQuoted(const char* pos, const char* end, Append append)
{
    for (;;) {
        const char* quote = std::find(pos, end, '"');
        const bool isDoubled = end - quote >= 2 && quote[1] == '"';
        append(std::string_view(pos, size_t(quote - pos) + (isDoubled ? 1 : 0)));
        if (!isDoubled)
            return quote == end ? end : quote + 1;
        pos = quote + 2;
    }
}

/// Appends the cell at \a pos to \a table and returns its end.
const char* readCell(const char* pos, const char* end, char separator, TableSource& table)
{
    if (pos != end && *pos == '"')
        pos = readQuoted(pos + 1, end, [&](std::string_view text) { table.append(text); });
    // The text after the closing quote does not conform to the standard, but is data.
    const char* cellEnd = std::find_if(pos, end, [&](char c) { return c == separator || isLineEnd(c); });
    table.append({pos, size_t(cellEnd - pos)});
    table.endCell();
    return cellEnd;
}

/// Skips a separator or a line end.
const char* skipEnd(const char* pos, const char* end)
{
    if (pos == end)
        return end;
    return *pos == '\r' && end - pos >= 2 && pos[1] == '\n' ? pos + 2 : pos + 1;
}

/// Detects the separator in the header. Quotes open only where a cell may start, so that 5" does not hide the rest.
char detectSeparator(std::string_view text)
{
    qint64 semicolonsMinusCommas = 0;
    const char* const end = text.data() + text.size();
    for (const char* pos = text.data(); pos != end && !isLineEnd(*pos); ++pos) {
        const bool cellStarts = pos == text.data() || pos[-1] == ',' || pos[-1] == ';';
        if (cellStarts && *pos == '"')
            pos = readQuoted(pos + 1, end, [](std::string_view) {}) - 1;
        else
            semicolonsMinusCommas += *pos == ';' ? 1 : *pos == ',' ? -1 : 0;
    }
    return semicolonsMinusCommas > 0 ? ';' : ',';
}

std::shared_ptr<TableSource> readDelimited(std::string text, char separator, const ProgressCallback& progress)
{
    auto table = std::make_shared<TableSource>(std::move(text));
    const char* const begin = table->buffer().data();
    const char* const end = begin + table->buffer().size();
    quint64 nextReport = 0;
    bool lineContinues = false;
    for (const char* pos = begin; pos != end || lineContinues; pos = skipEnd(pos, end)) {
        const auto done = quint64(pos - begin);
        if (done >= nextReport) {
            report(progress, 50, 99, done, table->buffer().size());
            nextReport = done + ReportStep;
        }
        pos = readCell(pos, end, separator, *table);
        lineContinues = pos != end && *pos == separator;
        if (!lineContinues)
            table->endRow();
    }
    return table;
}

/// Returns the shortest form that this and other programs read as \a text. Quotes both separators of CSV, because the
/// unused one could otherwise be detected as the separator of the header. Quotes blanks at the ends, because many
/// programs trim cells, and U+FEFF, because the cell may be the first in the file.
QByteArray escaped(QString text)
{
    const auto needsQuotes = [](QChar c) {
        return std::u16string_view(u"\",;\t\n\r").find(c.unicode()) != std::u16string_view::npos;
    };
    const auto isTrimmed = [](QChar c) { return c.isSpace() || c == QChar(QChar::ByteOrderMark); };
    const bool quoted = std::any_of(text.begin(), text.end(), needsQuotes)
                        || (!text.isEmpty() && (isTrimmed(text.front()) || isTrimmed(text.back())));
    if (quoted)
        text = QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
    return text.toUtf8();
}

void writeDelimited(const TableDocument& document, char separator, QIODevice& device)
{
    if (document.columnCount() == 0)
        return;
    quint64 offset = 0;
    for (int row = TableDocument::HeaderRow; row < document.rowCount(); ++row) {
        QByteArray line;
        const int count = document.cellCount(row);
        for (int column = 0; column < count; ++column) {
            if (column > 0)
                line += separator;
            line += escaped(document.text(row, column));
        }
        // Not every program reads an empty line as an empty cell.
        line += line.isEmpty() ? "\"\"\n" : "\n";
        if (isBinary({line.constData(), size_t(line.size())}, offset))
            throw TableError{QCoreApplication::translate(
                "gallery::DelimitedTable", "Control characters make it a binary file. It can be saved as JSON.")};
        device.write(line);
        offset += quint64(line.size());
    }
}

} // namespace

std::shared_ptr<const TableSource> readCsv(std::string text, const ProgressCallback& progress)
{
    const char separator = detectSeparator(text);
    const auto table = readDelimited(std::move(text), separator, progress);
    table->setSeparator(separator);
    return table;
}

std::shared_ptr<const TableSource> readTsv(std::string text, const ProgressCallback& progress)
{
    return readDelimited(std::move(text), '\t', progress);
}

void writeCsv(const TableDocument& document, QIODevice& device)
{
    writeDelimited(document, document.source().separator(), device);
}

void writeTsv(const TableDocument& document, QIODevice& device)
{
    writeDelimited(document, '\t', device);
}

} // namespace gallery
