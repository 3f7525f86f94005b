#pragma once

#include "TableDelegate.h"

#include <functional>

namespace zelmar::ui {
class ComboBoxAutoFilter;
} // namespace zelmar::ui

namespace gallery {

/// Edits the cells of a table through a combo box that filters names.
class NameDelegate : public TableDelegate
{
    Q_OBJECT

public:
    /// What a cell may be.
    enum class Entry {
        Name,    ///< one of the names; what is none leaves the cell as it was
        AnyText, ///< what stands in the text field, letter for letter; the names are an offer
    };
    /// The names for a cell, asked for when its editing begins. A model that is made for it belongs to `editor`. Null
    /// for a cell that is edited in the usual way.
    using NamesFor = std::function<QAbstractItemModel*(const QModelIndex& index, QObject* editor)>;

    NameDelegate(Entry entry, NamesFor namesFor, QObject* parent);
    ~NameDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

private Q_SLOTS:
    void commit();
    void revert();

private:
    void followText(zelmar::ui::ComboBoxAutoFilter& box) const;

    Entry m_entry;
    NamesFor m_namesFor;
};

} // namespace gallery
