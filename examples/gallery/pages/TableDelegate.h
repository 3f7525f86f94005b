#pragma once

#include <QStyledItemDelegate>

namespace gallery {

/// Draws the cells of a table. A text of megabytes costs no more than what fits a screen.
class TableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TableDelegate(QObject* parent);
    ~TableDelegate() override;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
};

} // namespace gallery
