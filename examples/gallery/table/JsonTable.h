#pragma once

#include "TableDocument.h"

class QIODevice;

namespace gallery {

/// The syntax of a plain JSON value: a string, a number, true, false, or null, which is read as an empty text.
class JsonSyntax : public CellSyntax
{
public:
    const char* cellEnd(const char* begin, const char* end) const override;
    /// Replaces unpaired surrogates by U+FFFD.
    [[nodiscard]] QString unescaped(const QString& raw) const override;
    /// Returns a JSON string with its quotes.
    [[nodiscard]] QString escaped(const QString& text) const override;
    [[nodiscard]] char separator() const override { return 0; }
};

/// Reads {"columns": ["a", ..], "rows": [["b", 1, ..], ..]} or an array of flat objects, whose keys
/// become the columns in the order of their first occurrence.
/// Reports 50 to 99 percent to \a progress. Returns the error text with the 1-based line and column, or an empty text.
QString readJson(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);

/// Writes the first of these forms in UTF-8. Unedited cells that were read from JSON are copied. Other cells of number
/// columns are written as numbers if JSON has such a number, and as null if they are empty. The device reports the
/// errors.
void writeJson(const TableDocument& document, QIODevice& device);

} // namespace gallery
