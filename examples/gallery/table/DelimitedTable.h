#pragma once

#include "TableDocument.h"

class QIODevice;

namespace gallery {

/// The syntax of lines whose cells are separated by a character. A cell that starts with a double quote ends at the
/// closing one and may contain separators and line ends; two quotes within it stand for one.
class DelimitedSyntax : public CellSyntax
{
public:
    explicit DelimitedSyntax(char separator)
        : m_separator(separator)
    {
    }

    const char* cellEnd(const char* begin, const char* end) const override;
    [[nodiscard]] QString unescaped(const QString& raw) const override;
    [[nodiscard]] QString escaped(const QString& text) const override;
    [[nodiscard]] char separator() const override { return m_separator; }

private:
    char m_separator;
};

/// Reads a table with commas as separators, or with semicolons if the first line has more of them.
/// The first line is the header, and an empty line is a row with one empty cell.
/// Lines end with CR LF, LF or CR; the line end of the last one is optional.
/// Reports 50 to 99 percent to \a progress. Returns the error text, or an empty text.
QString readCsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);
/// Reads a table with tabs as separators in the same way.
QString readTsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);

/// Writes the table. If it was read from the same format, every byte of its header and of its unedited rows and cells
/// is kept. Otherwise it is written in UTF-8 with LF. The device reports the errors.
void writeCsv(const TableDocument& document, QIODevice& device);
void writeTsv(const TableDocument& document, QIODevice& device);

} // namespace gallery
