#include "Keyboard.h"

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

bool hasKeyboard(QWidget& window)
{
    if (window.isVisible() && QGuiApplication::focusWindow() == window.windowHandle())
        QApplication::setActiveWindow(&window);
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
