#include "TableFormat.h"

#include <QIODevice>

#include <algorithm>

namespace gallery {

namespace {

bool isLineEnd(char byte)
{
    return byte == '\n' || byte == '\r';
}

/// Appends the text up to the closing quote to `table`.
/// Returns the position after the closing quote, or `end` if there is none.
const char* readQuoted(const char* pos, const char* end, TableSource& table)
{
    for (;;) {
        const char* quote = std::find(pos, end, '"');
        const bool isDoubled = end - quote >= 2 && quote[1] == '"';
        table.append({pos, size_t(quote - pos) + (isDoubled ? 1 : 0)});
        if (!isDoubled)
            return quote == end ? end : quote + 1;
        pos = quote + 2;
    }
}

/// Appends the cell at `pos` to `table` and returns its end.
template <typename IsSeparator>
const char* readCell(const char* pos, const char* end, IsSeparator isSeparator, TableSource& table)
{
    if (pos != end && *pos == '"')
        pos = readQuoted(pos + 1, end, table);
    // The text after the closing quote does not conform to the standard, but is data.
    const char* cellEnd = std::find_if(pos, end, [&](char byte) { return isSeparator(byte) || isLineEnd(byte); });
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

/// Detects the separator in the beginning of the header. Reads cells, because separators in quotes do not count.
char detectSeparator(std::string_view text)
{
    TableSource header;
    const char* const end = text.data() + std::min(text.size(), ReportStep);
    int semicolonsMinusCommas = 0;
    for (const char* pos = text.data();; ++pos) {
        pos = readCell(
            pos, end, [](char byte) { return byte == ',' || byte == ';'; }, header);
        if (pos == end || isLineEnd(*pos))
            return semicolonsMinusCommas > 0 ? ';' : ',';
        semicolonsMinusCommas += *pos == ';' ? 1 : -1;
    }
}

std::shared_ptr<const TableSource> readDelimited(std::string text, char separator, const ProgressCallback& progress)
{
    auto table = std::make_shared<TableSource>(std::move(text), separator);
    const auto isSeparator = [separator](char byte) { return byte == separator; };
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
        pos = readCell(pos, end, isSeparator, *table);
        lineContinues = pos != end && *pos == separator;
        if (!lineContinues)
            table->endRow();
    }
    return table;
}

/// Returns the shortest form that this and other programs read as `text`. Quotes both separators of CSV, because the
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
    for (int row = TableDocument::HeaderRow; row < document.rowCount(); ++row) {
        QByteArray line;
        for (int column = 0; column < document.columnCount(); ++column) {
            if (column > 0)
                line += separator;
            line += escaped(document.text(row, column));
        }
        if (line.contains('\0'))
            throw TableError{TableText::tr("The character NUL makes it a binary file. It can be saved as JSON.")};
        // Not every program reads an empty line as an empty cell.
        line += line.isEmpty() ? "\"\"\n" : "\n";
        device.write(line);
    }
}

} // namespace

TableFormat csvFormat()
{
    return {TableText::tr("CSV table (*.csv)"), QStringLiteral("csv"),
            [](std::string text, const ProgressCallback& progress) {
                const char separator = detectSeparator(text);
                return readDelimited(std::move(text), separator, progress);
            },
            [](const TableDocument& document, QIODevice& device) {
                writeDelimited(document, document.separator() == ';' ? ';' : ',', device);
            }};
}

TableFormat tsvFormat()
{
    return {TableText::tr("TSV table (*.tsv)"), QStringLiteral("tsv"),
            [](std::string text, const ProgressCallback& progress) {
                return readDelimited(std::move(text), '\t', progress);
            },
            [](const TableDocument& document, QIODevice& device) { writeDelimited(document, '\t', device); }};
}

} // namespace gallery
