#pragma once

#include "TableDocument.h"

class QIODevice;

namespace gallery {

/// One plain JSON value: a string, a number, true, false or null, which reads as an empty text.
class JsonSyntax : public CellSyntax
{
public:
    const char* cellEnd(const char* begin, const char* end) const override;
    /// Halves of surrogate pairs come out as U+FFFD.
    [[nodiscard]] QString unescaped(const QString& raw) const override;
    /// Always a string, with its quotes.
    [[nodiscard]] QString escaped(const QString& text) const override;
    [[nodiscard]] char separator() const override { return 0; }
};

/// Reads {"columns": ["a", ..], "rows": [["b", 1, ..], ..]} or an array of flat objects, whose keys
/// become the columns in the order they are first seen.
/// Uses percents 50 to 99 of \a progress. Returns the error text with line and column, counted
/// from 1, or an empty one.
QString readJson(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);

/// Writes the first of these forms, in UTF-8. Unedited cells that come from JSON are copied. Of
/// others, those of number columns are written as numbers where JSON has such a number, and as null
/// where they are empty. The device reports the errors.
void writeJson(const TableDocument& document, QIODevice& device);

} // namespace gallery
