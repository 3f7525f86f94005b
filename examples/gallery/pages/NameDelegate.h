#pragma once

#include "TableDelegate.h"

#include <functional>

namespace zelmar::ui {
class ComboBoxAutoFilter;
} // namespace zelmar::ui

namespace gallery {

/// A delegate that edits table cells with a combo box that filters names.
class NameDelegate : public TableDelegate
{
    Q_OBJECT

public:
    /// The texts that a cell accepts.
    enum class Entry {
        Name,    ///< one of the names; any other text leaves the cell unchanged
        AnyText, ///< the exact text of the line edit; the names are suggestions
    };
    /// A function that returns the names for a cell when its editing begins, or null for a cell with the default
    /// editor. The parent of a newly created model must be `editor`.
    using NamesFor = std::function<QAbstractItemModel*(const QModelIndex& index, QObject* editor)>;

    NameDelegate(Entry entry, NamesFor namesFor, QObject* parent);
    ~NameDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    /// Filters the events of the editors, and those of the lists of the combo box.
    bool eventFilter(QObject* object, QEvent* event) override;

private Q_SLOTS:
    void commit();
    void revert();

private:
    void followText(zelmar::ui::ComboBoxAutoFilter& box) const;

    Entry m_entry;
    NamesFor m_namesFor;
    CellStep m_step; ///< where the last key leads to if it ends editing
};

} // namespace gallery
