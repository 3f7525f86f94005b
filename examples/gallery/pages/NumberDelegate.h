#pragma once

#include "NameDelegate.h"

#include <functional>

namespace gallery {

/// A delegate that edits numbers with a number field, and other cells as its base class does.
///
/// A number is stored as it is typed, without the group separators that the field accepts. A text that was not changed
/// is not stored, so that "1.50" stays "1.50".
class NumberDelegate : public NameDelegate
{
    Q_OBJECT

public:
    /// A function that returns whether a cell is edited with a number field.
    using IsNumber = std::function<bool(const QModelIndex& index)>;

    NumberDelegate(IsNumber isNumber, NamesFor namesFor, QObject* parent);
    ~NumberDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    [[nodiscard]] QString refusedText(const QWidget& editor) const override;

private:
    IsNumber m_isNumber;
};

} // namespace gallery
