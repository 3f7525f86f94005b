#pragma once

#include "TableDocument.h"

#include <memory>

class QIODevice;

namespace gallery {

/// Reads {"columns": ["a", ..], "rows": [["b", 1, ..], ..]} or an array of flat objects, whose keys become the columns
/// in alphabetical order. A cell is a string, a number, true, false, or null, which is read as an empty text. Numbers
/// have the precision of double.
/// Reports 50 to 99 percent to \a progress. Throws TableError with the 1-based line and column of malformed JSON.
std::shared_ptr<const TableSource> readJson(std::string text, const ProgressCallback& progress);

/// Writes the first of these forms in UTF-8. In a number column a cell becomes a number if JSON has it in the same
/// notation, and null if it is empty. All other cells become strings. The device reports the errors.
void writeJson(const TableDocument& document, QIODevice& device);

} // namespace gallery
