#pragma once

#include "TableDocument.h"

#include <QAbstractTableModel>

#include <memory>

namespace gallery {

/// Returns the part of a text that is drawn: for a very long text its beginning.
QString shownText(const QString& text);

/// A model that shows and edits a document. It decodes a cell when the cell is requested, so that the size of the table
/// does not matter.
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TableModel(QObject* parent = nullptr);

    /// Returns the document, which is never null and initially an empty table. Edit it only through the model.
    [[nodiscard]] const std::shared_ptr<TableDocument>& document() const { return m_document; }
    /// Replaces the document. Null sets an empty table.
    void setDocument(std::shared_ptr<TableDocument> document);

    [[nodiscard]] bool isModified() const { return m_document->isModified(); }
    void markSaved();
    /// Returns the kind of \a column, which must be in range.
    [[nodiscard]] ColumnKind columnKind(int column) const { return m_document->columnKind(column); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Returns texts unabridged, however long they are. Code that draws them uses shownText().
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Returns the name of a column. Rows, and columns without a name, have 1-based numbers.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Sets the text of a cell. Returns true if the cell contains the text afterwards, even if it did before.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    void modifiedChanged(bool modified);

private:
    [[nodiscard]] bool isCell(const QModelIndex& index) const;

    std::shared_ptr<TableDocument> m_document;
};

} // namespace gallery
