#include "scrolledPage.h"

#include "GalleryPage.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

namespace gallery {

std::unique_ptr<QWidget> scrolledPage(std::unique_ptr<GalleryPage> page)
{
    auto owner = std::make_unique<QScrollArea>();
    QScrollArea* const area = owner.get();
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page.release());
    const auto showFocus = [area] {
        const QWidget* const focused = QApplication::focusWidget();
        if (!focused || !area->widget()->isAncestorOf(focused))
            return;
        // Not ensureWidgetVisible(), which shows only the line with the cursor. The beginning goes first.
        const QRect place(focused->mapTo(area->widget(), QPoint()), focused->size());
        area->ensureVisible(place.right(), place.bottom());
        area->ensureVisible(place.left(), place.top());
    };
    QObject::connect(qApp, &QApplication::focusChanged, area, showFocus);
    // At the next timer, because the layout of the page follows the scroll bars.
    QObject::connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, area,
                     [area, showFocus] { QTimer::singleShot(0, area, showFocus); });
    return owner;
}

} // namespace gallery
