#pragma once

#include "TableDocument.h"

class QIODevice;

namespace gallery {

/// Lines of cells with a separator between them. A cell that starts with a double quote runs to
/// the closing one, over separators and line ends; two quotes in it stand for one.
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

/// Commas between the cells, or semicolons where the first line has more of those.
/// The first line is the header, and an empty line is a row with one empty cell.
/// Lines end with CR LF, LF or CR; the last one may go without.
/// Uses percents 50 to 99 of \a progress. Returns the error text, or an empty one.
QString readCsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);
/// The same with tabs.
QString readTsv(TextBytes text, const ProgressCallback& progress, std::shared_ptr<const TableSource>& source);

/// A table that was read from the same format keeps every byte of its header and of its unedited
/// rows and cells. Any other is written in UTF-8, with LF. The device reports the errors.
void writeCsv(const TableDocument& document, QIODevice& device);
void writeTsv(const TableDocument& document, QIODevice& device);

} // namespace gallery
