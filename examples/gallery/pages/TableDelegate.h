#pragma once

#include <QStyledItemDelegate>

namespace gallery {

/// A delegate that draws table cells. A text of megabytes takes no longer than the part that fits on a screen.
class TableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TableDelegate(QObject* parent);
    ~TableDelegate() override;

    /// Creates an editor whose accessible name is the name of the column.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
};

} // namespace gallery
