#include "SettledPicture.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace gallery {

namespace {

const int millisecondsBetweenLooks = 20;
const int millisecondsWithoutChange = 120;

QRect areaOfWindows()
{
    QRect area;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (window->isVisible())
            area |= window->frameGeometry();
    }
    return area & QGuiApplication::primaryScreen()->geometry();
}

QImage lookAtScreen()
{
    const QRect area = areaOfWindows();
    return QGuiApplication::primaryScreen()->grabWindow(0, area.x(), area.y(), area.width(), area.height()).toImage();
}

} // namespace

bool SettledPicture::isSettled()
{
    if (m_sinceLook.isValid() && m_sinceLook.elapsed() < millisecondsBetweenLooks)
        return false;
    const QImage now = lookAtScreen();
    m_sinceLook.start();
    if (!m_sinceChange.isValid() || now != m_image) {
        m_image = now;
        m_sinceChange.start();
        return false;
    }
    return m_sinceChange.elapsed() >= millisecondsWithoutChange;
}

} // namespace gallery
