#pragma once

#include "TableSource.h"

#include <QMap>
#include <QPair>
#include <QString>
#include <QVector>

#include <memory>

namespace gallery {

/// A table of text cells with a header. It consists of an immutable file and the edits over it.
///
/// A table has as many columns as its widest row; the missing cells of shorter rows are empty.
/// Rows and columns are 0-based, do not include the header, and must be in range.
/// Copying is cheap whatever the size, so that another thread can save a copy while editing continues. Use an object on
/// one thread at a time.
class TableDocument
{
public:
    /// Creates a table without rows and columns.
    TableDocument();
    explicit TableDocument(std::shared_ptr<const TableSource> source);

    [[nodiscard]] int rowCount() const { return m_source->index().rowCount(); }
    [[nodiscard]] int columnCount() const { return m_source->index().columnCount(); }
    /// Returns the number of leading cells of the row that are written to a file.
    [[nodiscard]] int cellCount(int row) const;

    [[nodiscard]] QString headerText(int column) const { return m_source->headerText(column); }
    [[nodiscard]] QString text(int row, int column) const;
    /// Sets the text of a cell and returns whether it differs from the previous text.
    /// Unpaired surrogates, which no file can contain, become U+FFFD.
    bool setText(int row, int column, const QString& text);

    [[nodiscard]] bool isEdited(int row, int column) const { return m_edits.contains({row, column}); }
    [[nodiscard]] bool hasEdits(int row) const;
    /// Returns the indexes of the edited rows, each once, in ascending order.
    [[nodiscard]] QVector<int> editedRows() const;
    /// Returns all texts that differ from those of the file.
    [[nodiscard]] QList<QString> editedTexts() const { return m_edits.values(); }

    /// Returns whether there were changes since the load or the last markSaved().
    [[nodiscard]] bool isModified() const { return m_modified; }
    void markSaved() { m_modified = false; }

    /// Returns the kind of a column, which is determined from at most 1000 rows spread over the file. A number column
    /// contains only numbers in the notation of the C locale and empty cells. Edits do not change the kind.
    [[nodiscard]] ColumnKind columnKind(int column) const { return m_source->columnKind(column); }
    /// Returns "UTF-8", "UTF-16", or "Latin-1" for a file that is neither, as a text for the user.
    [[nodiscard]] QString encodingName() const;
    [[nodiscard]] const TableSource& source() const { return *m_source; }

private:
    using Cell = QPair<int, int>; ///< row and column, which sort in the order of writing

    std::shared_ptr<const TableSource> m_source;
    QMap<Cell, QString> m_edits;
    bool m_modified = false;
};

} // namespace gallery
