#include "TableFormat.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>
#include <set>

namespace gallery {

namespace {

QJsonDocument parse(std::string_view text)
{
    // The parsed document takes several times the size of the text, and Qt counts its bytes with an int.
    if (text.size() > std::min(loadMemoryLimit() / 8, quint64(std::numeric_limits<int>::max())))
        throw TableError{tooBigText()};
    QJsonParseError error;
    QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromRawData(text.data(), int(text.size())), &error);
    if (error.error == QJsonParseError::NoError)
        return json;
    const std::string_view before = text.substr(0, size_t(std::max(0, error.offset - 1)));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const auto column = before.size() - (before.rfind('\n') + 1) + 1;
    throw TableError{TableText::tr("Line %1, column %2: %3.").arg(line).arg(column).arg(error.errorString())};
}

/// Returns the keys that occur in any of the objects.
QJsonArray columnsOf(const QJsonArray& objects)
{
    std::set<QString> columns;
    for (const auto object : objects) {
        const QStringList keys = object.toObject().keys();
        columns.insert(keys.begin(), keys.end());
    }
    return QJsonArray::fromStringList(QStringList(columns.begin(), columns.end()));
}

/// Appends a list, or the values of an object.
void appendRow(const QJsonValue& row, const QJsonArray& columns, TableSource& table)
{
    if (!row.isArray() && !row.isObject())
        throw TableError{TableText::tr("Row %1 is neither a list nor an object.").arg(table.rowCount())};
    const QJsonArray cells = row.toArray();
    const QJsonObject object = row.toObject();
    const int count = row.isArray() ? cells.size() : columns.size();
    for (int column = 0; column < count; ++column) {
        const QJsonValue cell = row.isArray() ? cells.at(column) : object.value(columns.at(column).toString());
        if (cell.isArray() || cell.isObject())
            throw TableError{TableText::tr("Row %1: a cell has to be a plain value, not a list or an object.")
                                 .arg(table.rowCount())};
        table.append(cell.toVariant().toString().toStdString());
        table.endCell();
    }
    table.endRow();
}

QByteArray compact(const QJsonArray& array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

QJsonValue cellValue(const TableDocument& document, int row, int column)
{
    const QString text = document.text(row, column);
    if (row == TableDocument::HeaderRow || document.columnKind(column) != ColumnKind::Number)
        return text;
    if (text.isEmpty())
        return QJsonValue::Null;
    const QByteArray json = '[' + text.toUtf8() + ']';
    const QJsonArray read = QJsonDocument::fromJson(json).array();
    return read.size() == 1 && read.at(0).isDouble() && compact(read) == json ? read.at(0) : text;
}

QByteArray rowOf(const TableDocument& document, int row)
{
    QJsonArray cells;
    for (int column = 0; column < document.columnCount(); ++column)
        cells.append(cellValue(document, row, column));
    // Qt reads no byte order mark at the beginning of a string unless it is escaped.
    return compact(cells).replace("\xEF\xBB\xBF", "\\ufeff");
}

std::shared_ptr<const TableSource> readJson(std::string text, const ProgressCallback& progress)
{
    const auto table = std::make_shared<TableSource>(std::move(text));
    const QJsonDocument json = parse(table->buffer());
    const QJsonValue columns = json.object().value(QLatin1String("columns"));
    const QJsonValue rows = json.object().value(QLatin1String("rows"));
    if (json.isObject() && (!columns.isArray() || !rows.isArray() || json.object().size() != 2))
        throw TableError{
            TableText::tr(R"(A table is a list of objects, or an object with the lists "columns" and "rows".)")};
    const QJsonArray lines = json.isArray() ? json.array() : rows.toArray();
    const QJsonArray header = json.isArray() ? columnsOf(lines) : columns.toArray();
    appendRow(header, header, *table);
    for (int row = 0; row < lines.size(); ++row) {
        report(progress, 80, 99, quint64(row), quint64(lines.size()));
        appendRow(lines.at(row), header, *table);
    }
    return table;
}

void writeJson(const TableDocument& document, QIODevice& device)
{
    device.write("{\n\"columns\": " + rowOf(document, TableDocument::HeaderRow) + ",\n\"rows\": [");
    for (int row = 0; row < document.rowCount(); ++row)
        device.write((row == 0 ? "\n" : ",\n") + rowOf(document, row));
    device.write("\n]\n}\n");
}

} // namespace

TableFormat jsonFormat()
{
    return {TableText::tr("JSON table (*.json)"), QStringLiteral("json"), readJson, writeJson};
}

} // namespace gallery
