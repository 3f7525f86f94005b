#pragma once

#include "EditCommand.h"
#include "TableDocument.h"

#include <QAbstractTableModel>
#include <QUndoStack>

#include <memory>

namespace gallery {

/// Returns the part of a text that is drawn: for a very long text its beginning.
QString shownText(const QString& text);

/// A model that shows and edits a document. It decodes a cell when the cell is requested, so that the size of the table
/// does not matter. Edits can be undone until another document is set.
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TableModel(QObject* parent = nullptr);
    ~TableModel() override;

    /// Returns the document, which is never null and initially an empty table. Edit it only through the model.
    [[nodiscard]] const std::shared_ptr<TableDocument>& document() const { return m_document; }
    /// Replaces the document and forgets the edits. Null sets an empty table.
    void setDocument(std::shared_ptr<TableDocument> document);

    /// Returns the number of the current state of the texts. Undoing an edit leads back to the state before it; a new
    /// edit leads to a state with a new number.
    [[nodiscard]] int state() const;
    /// Returns whether edits have been made or undone since the document was loaded or saved.
    [[nodiscard]] bool isModified() const { return state() != m_savedState; }
    /// Records that the document was saved in this state.
    void markSaved(int state);

    /// Returns the undo stack for its texts and states. Use undo() and redo() to undo and redo an edit.
    [[nodiscard]] const QUndoStack& edits() const { return m_edits; }
    /// Undoes or redoes one edit. Returns its first cell, or an invalid index if there is no such edit.
    QModelIndex undo();
    QModelIndex redo();
    /// Removes the texts of cells as one edit.
    void clear(const QModelIndexList& cells);

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
    friend class EditCommand;

    [[nodiscard]] const EditCommand* editAt(int index) const;
    void edit(QVector<CellText> cells);
    void swapTexts(QVector<CellText>& cells);
    void tellWhetherModified();

    std::shared_ptr<TableDocument> m_document;
    QUndoStack m_edits;
    int m_lastState = 0;
    int m_savedState = 0;
    bool m_toldModified = false;
};

} // namespace gallery
