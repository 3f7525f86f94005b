#pragma once

#include "TableSource.h"

#include <QHash>
#include <QMap>
#include <QPair>

#include <memory>

namespace gallery {

enum class ColumnKind { Text, Number };

/// A table of text cells with a header. It consists of the immutable texts of a file and the edits over them.
///
/// A table has as many columns as its widest row; the missing cells of shorter rows are empty.
/// Rows and columns are 0-based and must be in range.
/// Copying is cheap whatever the size, so that another thread can save a copy while editing continues. Use an object on
/// one thread at a time.
class TableDocument
{
public:
    /// The number of the header. It counts as a row only where a function says so.
    static constexpr int HeaderRow = -1;

    /// Creates a table without rows and columns.
    TableDocument();
    TableDocument(std::shared_ptr<const TableSource> source, QString encodingName);

    [[nodiscard]] int rowCount() const;
    [[nodiscard]] int columnCount() const { return m_source->columnCount(); }
    /// Returns the number of leading cells of the row, or of the header, that are written to a file.
    [[nodiscard]] int cellCount(int row) const;

    [[nodiscard]] QString headerText(int column) const { return text(HeaderRow, column); }
    /// Returns the text of a cell, or of the header.
    [[nodiscard]] QString text(int row, int column) const;
    /// Sets the text of a cell and returns whether it differs from the previous text.
    /// Unpaired surrogates, which no file can contain, become U+FFFD.
    bool setText(int row, int column, const QString& text);

    /// Makes the document that of its saved file, which is always UTF-8.
    void markSaved();

    /// Returns the kind of a column, which is determined from at most 1000 rows spread over the file. A number column
    /// contains only numbers in the notation of the C locale and empty cells. Edits do not change the kind.
    [[nodiscard]] ColumnKind columnKind(int column) const;
    /// Returns the encoding of the file as a text for the user.
    [[nodiscard]] QString encodingName() const { return m_encodingName; }
    [[nodiscard]] const TableSource& source() const { return *m_source; }

private:
    using Cell = QPair<int, int>; ///< row and column

    std::shared_ptr<const TableSource> m_source;
    QString m_encodingName;
    mutable QHash<int, ColumnKind> m_kinds; ///< of the columns for which they were requested
    QMap<Cell, QString> m_edits;
};

} // namespace gallery
