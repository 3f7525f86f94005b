#include "TableFormat.h"

#include "DelimitedTable.h"
#include "JsonTable.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QIODevice>
#include <QSaveFile>

#include <exception>

namespace gallery {

namespace {

/// A device that counts the bytes that are written to a file. On a full disk a write may store only its first part and
/// still succeed, so that only the size of the file shows whether it is complete.
class CountingDevice : public QIODevice
{
public:
    explicit CountingDevice(QIODevice& target)
        : m_target(target)
    {
        open(WriteOnly | Unbuffered);
    }

    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] qint64 count() const { return m_count; }

protected:
    qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        m_count += size;
        m_target.write(data, size);
        return size;
    }

private:
    QIODevice& m_target;
    qint64 m_count = 0;
};

QString writeError(const QString& reason)
{
    return QCoreApplication::translate("gallery::TableFormat", "The file cannot be written: %1").arg(reason);
}

} // namespace

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
        TextBytes text;
        std::shared_ptr<const TableSource> source;
        QString error = readTextFile(path, progress, text);
        if (error.isEmpty())
            error = tableFormatForPath(path).read(std::move(text), progress, source);
        if (!error.isEmpty())
            return {nullptr, error};
        if (progress)
            progress(100);
        return {std::make_shared<TableDocument>(std::move(source)), {}};
    } catch (const std::exception&) {
        // The standard containers report exhausted memory only by this exception.
        return {nullptr, tooBigText()};
    }
}

QString writeTable(const TableDocument& document, const QString& path, const TableFormat& format)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return QCoreApplication::translate("gallery::TableFormat", "This is not a regular file.");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return writeError(file.errorString());
    CountingDevice device(file);
    format.write(document, device);
    // Without a commit QSaveFile removes its temporary file and keeps the old file.
    if (!file.flush() || file.error() != QFileDevice::NoError)
        return writeError(file.errorString());
    if (file.size() != device.count())
        return writeError(QCoreApplication::translate("gallery::TableFormat", "only a part of it has found room."));
    return file.commit() ? QString() : writeError(file.errorString());
}

} // namespace gallery
