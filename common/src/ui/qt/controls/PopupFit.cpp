#include "ui/qt/controls/PopupFit_p.h"

#include <QEvent>
#include <QListView>
#include <QScreen>
#include <QScrollBar>

namespace zelmar::internal {

namespace {

/// The number of items that are measured, more than are visible at a time. Measuring all items of a long list would
/// delay the pop-up.
constexpr int measuredItems = 100;

QRect screenOf(const QWidget& widget)
{
    return widget.screen()->availableGeometry();
}

/// Returns the width of the left and right margins of the pop-up that contains `list`, or 0 if the list itself is the
/// pop-up.
int frameWidthAround(const QWidget& list)
{
    if (list.isWindow() || !list.parentWidget())
        return 0;
    const QMargins margins = list.parentWidget()->contentsMargins();
    return margins.left() + margins.right();
}

} // namespace

PopupFit::PopupFit(QListView& list, QWidget& field)
    : QObject(&list)
    , m_list(list)
    , m_field(&field)
{
    list.installEventFilter(this);
}

int PopupFit::widthOf(const QListView& list, int shownRow)
{
    if (!list.model())
        return 0;
    const int rows = list.model()->rowCount(list.rootIndex());
    const int first = qBound(0, shownRow - measuredItems / 2, qMax(0, rows - measuredItems));
    int width = 0;
    for (int row = first; row < qMin(first + measuredItems, rows); ++row) {
        const QModelIndex item = list.model()->index(row, list.modelColumn(), list.rootIndex());
        width = qMax(width, list.sizeHintForIndex(item).width());
    }
    width += list.verticalScrollBar()->sizeHint().width() + 2 * list.frameWidth();
    return qMin(width, screenOf(list).width() - frameWidthAround(list));
}

bool PopupFit::eventFilter(QObject* watched, QEvent* event)
{
    if (m_field && (event->type() == QEvent::Show || event->type() == QEvent::Move || event->type() == QEvent::Resize))
        fit();
    return QObject::eventFilter(watched, event);
}

/// Sets the width of the list. Aligns the list with the right edge of the field in a right-to-left layout, and moves it
/// horizontally if it would leave the screen.
void PopupFit::fit()
{
    const QRect screen = screenOf(*m_field);
    QRect place = m_list.geometry();
    place.setWidth(qMax(m_field->width(), widthOf(m_list, 0)));
    if (m_field->layoutDirection() == Qt::RightToLeft)
        place.moveRight(m_field->mapToGlobal(m_field->rect().bottomRight()).x());
    if (place.right() > screen.right())
        place.moveRight(screen.right());
    if (place.left() < screen.left())
        place.moveLeft(screen.left());
    if (place != m_list.geometry())
        m_list.setGeometry(place);
}

} // namespace zelmar::internal
