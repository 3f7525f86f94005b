#pragma once

#include "TableDocument.h"

#include <memory>

class QIODevice;

namespace gallery {

/// Reads a table with commas as separators, or with semicolons if the first line has more of them.
/// The first line is the header, and an empty line is a row with one empty cell. A cell that starts with a double quote
/// ends at the closing one and may contain separators and line ends; two quotes within it stand for one.
/// Lines end with CR LF, LF or CR; the line end of the last one is optional.
/// Reports 50 to 99 percent to \a progress. Throws TableError.
std::shared_ptr<const TableSource> readCsv(std::string text, const ProgressCallback& progress);
/// Reads a table with tabs as separators in the same way.
std::shared_ptr<const TableSource> readTsv(std::string text, const ProgressCallback& progress);

/// Writes the table in UTF-8 with LF, as CSV with the separator with which it was read. The device reports its errors.
/// Throws TableError if a text contains control characters with which the file could not be opened again.
void writeCsv(const TableDocument& document, QIODevice& device);
void writeTsv(const TableDocument& document, QIODevice& device);

} // namespace gallery
