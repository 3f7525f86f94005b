#include "Keyboard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace {

/// Limits the requests for activation, because the window manager has to answer each before the next one.
void requestActivation(QWidget& window)
{
    static QElapsedTimer sinceRequest;
    if (sinceRequest.isValid() && sinceRequest.elapsed() < 200)
        return;
    window.activateWindow();
    sinceRequest.start();
}

} // namespace

bool hasKeyboard(QWidget& window)
{
    if (window.isVisible() && QGuiApplication::focusWindow() == window.windowHandle())
        QApplication::setActiveWindow(&window);
    if (window.isVisible() && !window.isActiveWindow())
        requestActivation(window);
    return window.isActiveWindow();
}

void takeKeyboardFocus(QWidget& widget)
{
    const auto hasFocus = [&widget] {
        if (!hasKeyboard(*widget.window()))
            return false;
        widget.setFocus();
        return widget.hasFocus();
    };
    if (!QTest::qWaitFor(hasFocus, 15000))
        qWarning("%s does not get the keyboard focus", qPrintable(widget.objectName()));
}
