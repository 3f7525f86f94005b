#pragma once

#include "TableDocument.h"

#include <QMetaType>
#include <QVector>

#include <memory>

class QIODevice;

namespace gallery {

/// One kind of file a table can be read from and written to.
struct TableFormat
{
    QString name;       ///< "CSV"
    QString nameFilter; ///< "CSV table (*.csv)", as file dialogs take it
    QString extension;  ///< "csv", without the dot

    QString (*read)(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);
    void (*write)(const TableDocument& document, QIODevice& device);
};

/// Never empty; CSV comes first. Safe from any thread.
const QVector<TableFormat>& tableFormats();
/// By the extension, in any case; CSV for a name that has another or none.
const TableFormat& tableFormatForPath(const QString& path);

/// Either a document or the text of what went wrong, which fits behind the name of the file.
struct TableResult
{
    std::shared_ptr<TableDocument> document;
    QString error;
};

/// Reads the file in the calling thread, whichever that is. Never throws.
TableResult readTable(const QString& path, const ProgressCallback& progress = {});

/// Replaces the file only when all of the table is written, so that a failure leaves it as it was.
/// Works in any thread; does not mark the document as saved. Returns the error text, or an empty one.
QString writeTable(const TableDocument& document, const QString& path, const TableFormat& format);

} // namespace gallery

Q_DECLARE_METATYPE(gallery::TableResult)
