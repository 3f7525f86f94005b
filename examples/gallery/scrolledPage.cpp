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
        // ensureWidgetVisible() would show only the line with the cursor. The beginning is more important than the end.
        const QRect place(focused->mapTo(area->widget(), QPoint()), focused->size());
        area->ensureVisible(place.right(), place.bottom());
        area->ensureVisible(place.left(), place.top());
    };
    QObject::connect(qApp, &QApplication::focusChanged, area, showFocus);
    // The timer lets the layout of the page follow the scroll bars first.
    QObject::connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, area,
                     [area, showFocus] { QTimer::singleShot(0, area, showFocus); });
    return owner;
}

} // namespace gallery
