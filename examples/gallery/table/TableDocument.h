#pragma once

#include "TableSource.h"

#include <QMap>
#include <QPair>
#include <QString>
#include <QVector>

#include <memory>

namespace gallery {

/// A table of text cells under a header: a file that never changes and the edits laid over it.
///
/// A table has as many columns as its widest row; shorter rows read as ending in empty cells.
/// Rows and columns count from 0, the header not included, and have to be in range.
/// Copying is cheap, whatever the size, so a copy can be saved in another thread while editing goes
/// on. One object belongs to one thread at a time.
class TableDocument
{
public:
    /// A table without rows and columns.
    TableDocument();
    explicit TableDocument(std::shared_ptr<const TableSource> source);

    [[nodiscard]] int rowCount() const { return m_source->index().rowCount(); }
    [[nodiscard]] int columnCount() const { return m_source->index().columnCount(); }
    /// How many leading cells of the row are written to a file.
    [[nodiscard]] int cellCount(int row) const;

    [[nodiscard]] QString headerText(int column) const { return m_source->headerText(column); }
    [[nodiscard]] QString text(int row, int column) const;
    /// Returns whether the text differs from what the cell said before.
    /// Half surrogate pairs, which no file can hold, become U+FFFD.
    bool setText(int row, int column, const QString& text);

    [[nodiscard]] bool isEdited(int row, int column) const { return m_edits.contains({row, column}); }
    [[nodiscard]] bool hasEdits(int row) const;
    /// Ascending, each once.
    [[nodiscard]] QVector<int> editedRows() const;
    /// All texts that differ from the file's.
    [[nodiscard]] QList<QString> editedTexts() const { return m_edits.values(); }

    /// Whether there were changes since the load or the last markSaved().
    [[nodiscard]] bool isModified() const { return m_modified; }
    void markSaved() { m_modified = false; }

    /// Judged by at most 1000 rows spread over the file: a column of numbers has nothing but
    /// numbers, as the C locale writes them, and empty cells in them. Edits do not change it.
    [[nodiscard]] ColumnKind columnKind(int column) const { return m_source->columnKind(column); }
    /// "UTF-8", "UTF-16", or "Latin-1" for a file that is neither. For people, so not translated back.
    [[nodiscard]] QString encodingName() const;
    [[nodiscard]] const TableSource& source() const { return *m_source; }

private:
    using Cell = QPair<int, int>; ///< row, column: sorted as they are written

    std::shared_ptr<const TableSource> m_source;
    QMap<Cell, QString> m_edits;
    bool m_modified = false;
};

} // namespace gallery
