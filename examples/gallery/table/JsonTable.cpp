#include "JsonTable.h"

#include <QCoreApplication>
#include <QHash>
#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace gallery {

namespace {

bool isSpace(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

const char* skipDigits(const char* pos, const char* end)
{
    return std::find_if_not(pos, end, isDigit);
}

/// Returns the end of the number at \a pos, or null if there is no valid JSON number.
const char* numberEnd(const char* pos, const char* end)
{
    if (pos != end && *pos == '-')
        ++pos;
    const char* digits = pos;
    pos = skipDigits(pos, end);
    if (pos == digits || (*digits == '0' && pos - digits > 1))
        return nullptr;
    if (pos != end && *pos == '.') {
        digits = ++pos;
        pos = skipDigits(pos, end);
        if (pos == digits)
            return nullptr;
    }
    if (pos == end || (*pos != 'e' && *pos != 'E'))
        return pos;
    if (++pos != end && (*pos == '+' || *pos == '-'))
        ++pos;
    digits = pos;
    pos = skipDigits(pos, end);
    return pos == digits ? nullptr : pos;
}

bool isNumber(const QByteArray& text)
{
    return numberEnd(text.begin(), text.end()) == text.end();
}

/// Returns the length of the escape sequence that starts with the backslash at \a pos, or 0 if it is invalid.
int escapeLength(const char* pos, const char* end)
{
    if (end - pos < 2 || pos[1] == '\0')
        return 0;
    if (pos[1] != 'u')
        return std::strchr("\"\\/bfnrt", pos[1]) != nullptr ? 2 : 0;
    const auto isHex = [](char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); };
    return end - pos >= 6 && std::all_of(pos + 2, pos + 6, isHex) ? 6 : 0;
}

QChar escapedChar(QChar letter)
{
    switch (letter.unicode()) {
    case 'b':
        return QLatin1Char('\b');
    case 'f':
        return QLatin1Char('\f');
    case 'n':
        return QLatin1Char('\n');
    case 'r':
        return QLatin1Char('\r');
    case 't':
        return QLatin1Char('\t');
    default:
        return letter;
    }
}

void replaceHalfPairs(QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool startsPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (startsPair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
}

class JsonTableReader
{
    Q_DECLARE_TR_FUNCTIONS(gallery::JsonTableReader)

public:
    JsonTableReader(const TextBytes& text, const ProgressCallback& progress)
        : m_text(text)
        , m_all(text.all())
        , m_pos(m_all.begin + text.start)
        , m_stage(progress, 50, 99, m_all.size())
        , m_index(loadMemoryLimit() - std::min(loadMemoryLimit(), m_all.size()))
    {
    }

    /// Reads the table. Returns the error text, or an empty text.
    QString read()
    {
        bool ok = false;
        if (accept('{'))
            ok = readList('}', [this] { return readMember(); }) && hasBothMembers();
        else if (accept('['))
            ok = readList(']', [this] { return readObject(); });
        else
            fail(tr("a table has to start with { or ["));
        if (ok && skipSpace() != m_all.end)
            ok = fail(tr("nothing may follow the table"));
        if (ok && !m_index.finish(m_all.size()))
            return m_index.error();
        return m_error;
    }

    TableIndex takeIndex() { return std::move(m_index); }

private:
    bool fail(const QString& message)
    {
        const auto line = std::count(m_all.begin, m_pos, '\n') + 1;
        const char* lineStart = m_pos;
        while (lineStart != m_all.begin && lineStart[-1] != '\n')
            --lineStart;
        m_error = tr("Line %1, column %2: %3.").arg(line).arg(m_pos - lineStart + 1).arg(message);
        return false;
    }

    bool failWith(const QString& error)
    {
        m_error = error;
        return false;
    }

    quint64 offset(const char* pos) const { return quint64(pos - m_all.begin); }

    const char* skipSpace() { return m_pos = std::find_if_not(m_pos, m_all.end, isSpace); }

    bool accept(char byte)
    {
        if (skipSpace() == m_all.end || *m_pos != byte)
            return false;
        ++m_pos;
        return true;
    }

    bool expect(char byte) { return accept(byte) || fail(tr("%1 was expected").arg(QLatin1Char(byte))); }

    /// Reads items up to the closing bracket. The opening bracket must have been read.
    template <typename ReadItem>
    bool readList(char close, ReadItem readItem)
    {
        if (accept(close))
            return true;
        do {
            if (!m_stage.reached(offset(m_pos)))
                return failWith(cancelledText());
            if (!readItem())
                return false;
        } while (accept(','));
        return accept(close) || fail(tr("a comma or %1 was expected").arg(QLatin1Char(close)));
    }

    bool readMember()
    {
        ByteRange key;
        if (!readString(key) || !expect(':'))
            return false;
        const QString name = textOf(key);
        bool* isSeen = name == QLatin1String("columns") ? &m_hasColumns
                       : name == QLatin1String("rows")  ? &m_hasRows
                                                        : nullptr;
        if (isSeen == nullptr || *isSeen)
            return fail(tr(R"(a table has "columns" and "rows", each once, and not "%1" here)").arg(name));
        *isSeen = true;
        if (!expect('['))
            return false;
        return isSeen == &m_hasColumns ? readList(']', [this] { return readColumn(); })
                                       : readList(']', [this] { return readRow(); });
    }

    bool hasBothMembers() { return (m_hasColumns && m_hasRows) || fail(tr(R"(the table lacks "columns" or "rows")")); }

    bool readColumn()
    {
        ByteRange cell;
        return readCell(cell) && addHeaderCell(cell);
    }

    bool addHeaderCell(ByteRange cell)
    {
        return m_index.addHeaderCell(offset(cell.begin), cell.size()) || failWith(m_index.error());
    }

    bool readRow()
    {
        if (!expect('['))
            return false;
        if (!m_index.beginRow(offset(m_pos)))
            return failWith(m_index.error());
        quint64 column = 0;
        return readList(']', [&] {
            ByteRange cell;
            return readCell(cell) && setCell(column++, cell);
        });
    }

    bool setCell(quint64 column, ByteRange cell)
    {
        return m_index.setCell(column, offset(cell.begin), cell.size()) || failWith(m_index.error());
    }

    bool readObject()
    {
        if (!expect('{'))
            return false;
        if (!m_index.beginRow(offset(m_pos)))
            return failWith(m_index.error());
        int column = -1;
        return readList('}', [&] { return readObjectMember(column); });
    }

    /// Reads a member of an object. \a column is the column of the previous member and is set to that of this one.
    bool readObjectMember(int& column)
    {
        ByteRange key;
        if (!readString(key))
            return false;
        column = columnFor(key, column + 1);
        if (column < 0)
            return false;
        if (m_index.hasCellInLastRow(quint64(column)))
            return fail(tr("\"%1\" is there twice").arg(textOf(key)));
        ByteRange cell;
        return expect(':') && readCell(cell) && setCell(quint64(column), cell);
    }

    /// Returns the column with this key and creates it if necessary. Returns -1 after an error.
    int columnFor(ByteRange key, int expected)
    {
        // Most objects repeat the keys in the same order, which is much faster to check than a lookup.
        if (expected < m_index.headerCount()) {
            const char* name = m_all.begin + m_index.headerOffset(expected);
            if (std::memcmp(name, key.begin, size_t(key.size())) == 0)
                return expected;
        }
        const QString name = textOf(key);
        const auto known = m_columns.constFind(name);
        if (known != m_columns.cend())
            return *known;
        if (!addHeaderCell(key))
            return -1;
        return *m_columns.insert(name, m_index.headerCount() - 1);
    }

    [[nodiscard]] QString textOf(ByteRange string) const { return m_syntax.unescaped(m_text.decoded(string)); }

    bool readCell(ByteRange& cell)
    {
        if (skipSpace() == m_all.end)
            return fail(tr("the file ends within the table"));
        if (*m_pos == '"')
            return readString(cell);
        if (*m_pos == '-' || isDigit(*m_pos))
            return readNumber(cell);
        if (*m_pos == '[' || *m_pos == '{')
            return fail(tr("a cell has to be a plain value, not a list or an object"));
        for (const char* word : {"true", "false", "null"}) {
            const size_t size = std::strlen(word);
            if (size_t(m_all.end - m_pos) >= size && std::memcmp(m_pos, word, size) == 0) {
                cell = {m_pos, m_pos + size};
                m_pos = cell.end;
                return true;
            }
        }
        return fail(tr("a value was expected"));
    }

    bool readNumber(ByteRange& number)
    {
        const char* end = numberEnd(m_pos, m_all.end);
        if (end == nullptr)
            return fail(tr("this is not a number"));
        number = {m_pos, end};
        m_pos = end;
        return true;
    }

    bool readString(ByteRange& string)
    {
        if (skipSpace() == m_all.end || *m_pos != '"')
            return fail(tr("a text in quotes was expected"));
        string.begin = m_pos++;
        while (m_pos != m_all.end && *m_pos != '"') {
            if (uchar(*m_pos) < 0x20)
                return fail(tr("control characters have to be escaped"));
            const int length = *m_pos == '\\' ? escapeLength(m_pos, m_all.end) : 1;
            if (length == 0)
                return fail(tr("this is not an escape"));
            m_pos += length;
        }
        if (m_pos == m_all.end)
            return fail(tr("the text that starts at byte %1 is not closed").arg(offset(string.begin)));
        string.end = ++m_pos;
        return true;
    }

    const TextBytes& m_text;
    const ByteRange m_all;
    const char* m_pos;
    ProgressStage m_stage;
    TableIndex m_index;
    JsonSyntax m_syntax;
    QHash<QString, int> m_columns; ///< the columns of an array of objects by key
    bool m_hasColumns = false;
    bool m_hasRows = false;
    QString m_error;
};

class JsonTableWriter
{
public:
    JsonTableWriter(const TableDocument& document, QIODevice& device)
        : m_document(document)
        , m_source(document.source())
        , m_device(device)
    {
    }

    void write()
    {
        m_device.write("{\n\"columns\": ");
        writeList(m_source.index().headerCount(),
                  [this](int column) { return m_syntax.escaped(m_document.headerText(column)).toUtf8(); });
        m_device.write(",\n\"rows\": [");
        for (int row = 0; row < m_document.rowCount(); ++row) {
            m_device.write(row == 0 ? "\n" : ",\n");
            writeList(m_document.cellCount(row), [&](int column) { return cell(row, column); });
        }
        m_device.write("\n]\n}\n");
    }

private:
    template <typename ItemAt>
    void writeList(int count, ItemAt itemAt)
    {
        QByteArray line = "[";
        for (int i = 0; i < count; ++i) {
            if (i > 0)
                line += ", ";
            line += itemAt(i);
        }
        m_device.write(line + ']');
    }

    [[nodiscard]] QByteArray cell(int row, int column) const
    {
        const bool isFromJson = m_source.syntax().separator() == m_syntax.separator();
        const bool isInFile = m_source.index().hasCell(row, column) && !m_document.isEdited(row, column);
        if (isFromJson && isInFile)
            return m_source.text().decoded(m_source.rawCell(row, column)).toUtf8();
        const QString text = m_document.text(row, column);
        if (m_document.columnKind(column) == ColumnKind::Number) {
            if (text.isEmpty())
                return "null";
            if (isNumber(text.toUtf8()))
                return text.toUtf8();
        }
        return m_syntax.escaped(text).toUtf8();
    }

    const TableDocument& m_document;
    const TableSource& m_source;
    QIODevice& m_device;
    JsonSyntax m_syntax;
};

} // namespace

const char* JsonSyntax::cellEnd(const char* begin, const char* end) const
{
    if (begin == end || *begin != '"') {
        return std::find_if(begin, end,
                            [](char byte) { return isSpace(byte) || byte == ',' || byte == ']' || byte == '}'; });
    }
    const char* pos = begin + 1;
    while (pos != end && *pos != '"')
        pos += *pos == '\\' && pos + 1 != end ? 2 : 1;
    return pos == end ? pos : pos + 1;
}

QString JsonSyntax::unescaped(const QString& raw) const
{
    if (!raw.startsWith(QLatin1Char('"')))
        return raw == QLatin1String("null") ? QString() : raw;
    QString inner = raw.mid(1, raw.size() - 2);
    if (!inner.contains(QLatin1Char('\\')))
        return inner;
    QString text;
    text.reserve(inner.size());
    for (int pos = 0; pos < inner.size(); ++pos) {
        if (inner[pos] != QLatin1Char('\\')) {
            text += inner[pos];
        } else if (inner[++pos] == QLatin1Char('u')) {
            text += QChar(inner.mid(pos + 1, 4).toUShort(nullptr, 16));
            pos += 4;
        } else {
            text += escapedChar(inner[pos]);
        }
    }
    replaceHalfPairs(text);
    return text;
}

QString JsonSyntax::escaped(const QString& text) const
{
    QString json = QStringLiteral("\"");
    json.reserve(text.size() + 2);
    for (QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            json += QLatin1Char('\\');
        if (c.unicode() < 0x20)
            json += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            json += c;
    }
    return json += QLatin1Char('"');
}

QString readJson(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source)
{
    JsonTableReader reader(text, progress);
    QString error = reader.read();
    if (!error.isEmpty())
        return error;
    TableIndex index = reader.takeIndex();
    source = std::make_shared<TableSource>(std::move(text), std::make_unique<JsonSyntax>(), std::move(index));
    return {};
}

void writeJson(const TableDocument& document, QIODevice& device)
{
    JsonTableWriter(document, device).write();
}

} // namespace gallery
