#include "ui/qt/controls/ElidedTextUtil_p.h"

#include <QFontMetrics>
#include <QString>
#include <QWidget>

ElidedTextUtil::~ElidedTextUtil() = default;

void ElidedTextUtil::updateToolTip(QWidget* widget, int availableWidth, const QString& shownText,
                                   const QString& fullText)
{
    // Compatibility: stale-tool-tip
    const QString current = widget->toolTip();
    if (!current.isEmpty() && current != fullText)
        return;
    const bool fits = widget->fontMetrics().horizontalAdvance(shownText) <= availableWidth;
    const QString wanted = fits ? QString() : fullText;
    if (current != wanted)
        widget->setToolTip(wanted);
}
