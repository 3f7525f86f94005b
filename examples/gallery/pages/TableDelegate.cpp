#include "TableDelegate.h"

#include "TableModel.h"

namespace gallery {

TableDelegate::TableDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

TableDelegate::~TableDelegate() = default;

QString TableDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    const bool isText = value.userType() == QMetaType::QString;
    return QStyledItemDelegate::displayText(isText ? shownText(value.toString()) : value, locale);
}

} // namespace gallery
