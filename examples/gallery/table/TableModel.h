#pragma once

#include "TableDocument.h"

#include <QAbstractTableModel>

#include <memory>

namespace gallery {

/// What is drawn of a text: of a very long one the beginning.
QString shownText(const QString& text);

/// Shows and edits a document. A cell is decoded when it is asked for, so the size of the table
/// does not matter.
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TableModel(QObject* parent = nullptr);

    /// Never null; an empty table at first. Edit it through the model only.
    [[nodiscard]] const std::shared_ptr<TableDocument>& document() const { return m_document; }
    /// Null stands for an empty table.
    void setDocument(std::shared_ptr<TableDocument> document);

    [[nodiscard]] bool isModified() const { return m_document->isModified(); }
    void markSaved();
    /// \a column has to be in range.
    [[nodiscard]] ColumnKind columnKind(int column) const { return m_document->columnKind(column); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Texts are whole, however long: whoever draws them takes shownText().
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Columns without a name are numbered from 1, and so are rows.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// True when the cell holds the text afterwards, whether or not it was another before.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    void modifiedChanged(bool modified);

private:
    [[nodiscard]] bool isCell(const QModelIndex& index) const;

    std::shared_ptr<TableDocument> m_document;
};

} // namespace gallery
