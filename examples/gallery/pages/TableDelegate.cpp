#include "TableDelegate.h"

#include "TableModel.h"

namespace gallery {

TableDelegate::TableDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

TableDelegate::~TableDelegate() = default;

QWidget* TableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor)
        editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return editor;
}

QString TableDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    const bool isText = value.userType() == QMetaType::QString;
    return QStyledItemDelegate::displayText(isText ? shownText(value.toString()) : value, locale);
}

} // namespace gallery
