#include "ui/qt/controls/findMainWindow.h"

#include <QApplication>
#include <QMainWindow>

namespace zelmar::ui {

namespace {

QMainWindow* firstMainWindow()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        auto* mainWindow = dynamic_cast<QMainWindow*>(widget);
        if (mainWindow && widget->isWindow())
            return mainWindow;
    }
    return nullptr;
}

} // namespace

QMainWindow* findMainWindow(bool refresh)
{
    static QMainWindow* cached = nullptr;
    if (cached && !refresh)
        return cached;
    // Compatibility: main-window-never-forgotten
    if (QMainWindow* found = firstMainWindow())
        cached = found;
    return cached;
}

} // namespace zelmar::ui
