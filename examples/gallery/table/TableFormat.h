#pragma once

#include "TableDocument.h"

#include <QMetaType>
#include <QVector>

#include <memory>

class QIODevice;

namespace gallery {

/// A file format from which tables can be read and to which they can be written.
struct TableFormat
{
    QString name;       ///< "CSV"
    QString nameFilter; ///< the name filter for file dialogs: "CSV table (*.csv)"
    QString extension;  ///< "csv", without the dot

    std::shared_ptr<const TableSource> (*read)(std::string text, const ProgressCallback& progress);
    void (*write)(const TableDocument& document, QIODevice& device);
};

/// Returns all formats, of which CSV is the first. May be called on any thread.
const QVector<TableFormat>& tableFormats();
/// Returns the format for the extension of `path`, ignoring case. Returns CSV for an unknown or missing extension.
const TableFormat& tableFormatForPath(const QString& path);

/// Either a document or an error text, which can be appended to the name of the file.
struct TableResult
{
    std::shared_ptr<TableDocument> document;
    QString error;
};

/// Reads the file. May be called on any thread and never throws.
TableResult readTable(const QString& path, const ProgressCallback& progress = {});

/// Writes the table and replaces the file only if everything was written, so that a failure leaves the old file
/// unchanged. May be called on any thread. Does not mark the document as saved. Returns the error text, or an empty
/// text.
QString writeTable(const TableDocument& document, const QString& path, const TableFormat& format);

} // namespace gallery

Q_DECLARE_METATYPE(gallery::TableResult)
