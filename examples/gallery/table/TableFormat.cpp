#include "TableFormat.h"

#include "SafeFile.h"

#include <QFileInfo>

#include <exception>

namespace gallery {

const QVector<TableFormat>& tableFormats()
{
    static const QVector<TableFormat> formats = {csvFormat(), tsvFormat(), jsonFormat()};
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
        auto source = tableFormatForPath(path).read(std::move(file.text), progress);
        report(progress, 100, 100, 1, 1);
        return {std::make_shared<TableDocument>(std::move(source), file.encodingName), {}};
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
