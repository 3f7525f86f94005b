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
    QString nameFilter; ///< the name filter for file dialogs: "CSV table (*.csv)"
    QString extension;  ///< "csv", without the dot

    /// Reads a table and reports 50 to 99 percent to `progress`. Throws TableError.
    std::shared_ptr<const TableSource> (*read)(std::string text, const ProgressCallback& progress);
    /// Writes a table in UTF-8. Throws TableError if the file could not be read again. The device reports its errors.
    void (*write)(const TableDocument& document, QIODevice& device);
};

/// Returns the format with commas as separators, or with semicolons if the first line has more of them.
/// The first line is the header, and an empty line is a row with one empty cell. A cell that starts with a double quote
/// ends at the closing one and may contain separators and line ends; two quotes within it stand for one.
/// Lines end with CR LF, LF or CR, and with LF in a written file, which has the separator with which it was read.
TableFormat csvFormat();
/// Returns the same format with tabs as separators.
TableFormat tsvFormat();
/// Returns the format {"columns": ["a", ..], "rows": [["b", 1, ..], ..]}. An array of flat objects is read as well;
/// their keys become the columns in alphabetical order. A cell is a string, a number, true, false, or null, which is
/// read as an empty text. Numbers have the precision of double; in a number column a cell is written as one if it reads
/// the same.
TableFormat jsonFormat();

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
