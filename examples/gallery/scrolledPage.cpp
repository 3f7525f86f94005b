#include "scrolledPage.h"

#include "GalleryPage.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>

namespace gallery {

namespace {

/// Lets the wheel scroll the page while the pointer is over a field without the keyboard focus.
class WheelFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* field, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(field)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

void keepTheWheelFromFields(QScrollArea& area)
{
    auto* const filter = new WheelFilter(&area);
    for (auto* field : area.widget()->findChildren<QWidget*>())
        if (qobject_cast<QAbstractSpinBox*>(field) || qobject_cast<QComboBox*>(field)) {
            field->setFocusPolicy(Qt::StrongFocus);
            field->installEventFilter(filter);
        }
}

/// Shows `focused` from its beginning on, and the beginning of the page, such as the label of `focused`, if both fit.
void showOnPage(QScrollArea& area, const QWidget& focused)
{
    const QWidget& page = *area.widget();
    const QRect visual(focused.mapTo(&page, QPoint()), focused.size());
    // From here on, left is where lines begin.
    QRect place = QStyle::visualRect(area.layoutDirection(), page.rect(), visual);
    // A layout may have made a field wider than it needs to be.
    place.setWidth(qMin(place.width(), focused.sizeHint().width()));
    if (place.right() < area.viewport()->width())
        place.setLeft(0);
    // ensureWidgetVisible() would show only the line with the cursor. The beginning is more important than the end.
    for (const QPoint& corner : {place.bottomRight(), place.topLeft()}) {
        // ensureVisible() mirrors within the viewport, not within the page.
        const QPoint point = QStyle::visualPos(area.layoutDirection(), area.viewport()->rect(), corner);
        area.ensureVisible(point.x(), point.y());
    }
}

} // namespace

std::unique_ptr<QWidget> scrolledPage(std::unique_ptr<GalleryPage> page)
{
    auto owner = std::make_unique<QScrollArea>();
    QScrollArea* const area = owner.get();
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page.release());
    keepTheWheelFromFields(*area);
    const auto showFocus = [area] {
        const QWidget* const focused = QApplication::focusWidget();
        if (focused && area->widget()->isAncestorOf(focused))
            showOnPage(*area, *focused);
    };
    QObject::connect(qApp, &QApplication::focusChanged, area, showFocus);
    // The timer lets the layout of the page follow the scroll bars first.
    QObject::connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, area,
                     [area, showFocus] { QTimer::singleShot(0, area, showFocus); });
    return owner;
}

} // namespace gallery
