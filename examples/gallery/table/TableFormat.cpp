#include "TableFormat.h"

#include "DelimitedTable.h"
#include "JsonTable.h"
#include "SafeFile.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <exception>

namespace gallery {

const QVector<TableFormat>& tableFormats()
{
    static const QVector<TableFormat> formats = {
        {QStringLiteral("CSV"), QCoreApplication::translate("gallery::TableFormat", "CSV table (*.csv)"),
         QStringLiteral("csv"), readCsv, writeCsv},
        {QStringLiteral("TSV"), QCoreApplication::translate("gallery::TableFormat", "TSV table (*.tsv)"),
         QStringLiteral("tsv"), readTsv, writeTsv},
        {QStringLiteral("JSON"), QCoreApplication::translate("gallery::TableFormat", "JSON table (*.json)"),
         QStringLiteral("json"), readJson, writeJson},
    };
    return formats;
}

const TableFormat& tableFormatForPath(const QString& path)
{
    const QString extension = QFileInfo(path).suffix();
    for (const TableFormat& format : tableFormats()) {
        if (format.extension.compare(extension, Qt::CaseInsensitive) == 0)
            return format;
    }
    return tableFormats().first();
}

TableResult readTable(const QString& path, const ProgressCallback& progress)
{
    try {
        TextFile file = readTextFile(path, progress);
        const auto document = std::make_shared<TableDocument>(
            tableFormatForPath(path).read(std::move(file.text), progress), file.encodingName);
        if (progress)
            progress(100);
        return {document, {}};
    } catch (const TableError& error) {
        return {nullptr, error.text};
    } catch (const std::exception&) {
        // The standard containers report exhausted memory only by this exception.
        return {nullptr, tooBigText()};
    }
}

QString writeTable(const TableDocument& document, const QString& path, const TableFormat& format)
{
    SafeFile file(path);
    try {
        format.write(document, file);
    } catch (const TableError& error) {
        return error.text;
    }
    return file.commit();
}

} // namespace gallery
