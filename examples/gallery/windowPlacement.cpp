#include "windowPlacement.h"

#include <QGuiApplication>
#include <QScreen>

namespace gallery {

QSize largestWindowOn(const QRect& screen)
{
    return screen.size() * 9 / 10;
}

QRect placeOnScreen(const QRect& wanted)
{
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    const QRect available = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    if (available.contains(wanted))
        return wanted;
    QRect inner(QPoint(), largestWindowOn(available));
    inner.moveCenter(available.center());
    QRect place(wanted.topLeft(), wanted.size().boundedTo(inner.size()));
    place.moveRight(qMin(place.right(), inner.right()));
    place.moveBottom(qMin(place.bottom(), inner.bottom()));
    place.moveLeft(qMax(place.left(), inner.left()));
    place.moveTop(qMax(place.top(), inner.top()));
    return place;
}

} // namespace gallery
