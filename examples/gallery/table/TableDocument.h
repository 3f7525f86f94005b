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

    explicit TableDocument(std::shared_ptr<const TableSource> source = std::make_shared<TableSource>(),
                           QString encodingName = QStringLiteral("UTF-8"));

    [[nodiscard]] int rowCount() const { return columnCount() == 0 ? 0 : m_source->rowCount() - 1; }
    [[nodiscard]] int columnCount() const { return m_source->columnCount(); }

    [[nodiscard]] QString headerText(int column) const { return text(HeaderRow, column); }
    /// Returns the text of a cell, or of the header.
    [[nodiscard]] QString text(int row, int column) const;
    /// Sets the text of a cell. Unpaired surrogates, which no file can contain, are replaced.
    void setText(int row, int column, const QString& text);

    /// Returns the kind of a column, which is determined from at most 1000 rows spread over the file. A number column
    /// contains only numbers in the notation of the C locale and empty cells. Edits do not change the kind.
    [[nodiscard]] ColumnKind columnKind(int column) const;

    /// Returns the encoding of the file as a text for the user.
    [[nodiscard]] QString encodingName() const { return m_encodingName; }
    /// Records that the file was saved, which is always done as UTF-8.
    void markSaved() { m_encodingName = QStringLiteral("UTF-8"); }

    /// Returns the separator of the file.
    [[nodiscard]] char separator() const { return m_source->separator(); }

private:
    std::shared_ptr<const TableSource> m_source;
    QString m_encodingName;
    QMap<QPair<int, int>, QString> m_edits; ///< by row and column
    mutable QHash<int, ColumnKind> m_kinds; ///< of the columns for which they were requested
};

} // namespace gallery
