#include "scrolledPage.h"

#include "GalleryPage.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
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
