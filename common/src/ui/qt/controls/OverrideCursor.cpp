#include "ui/qt/controls/OverrideCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace zelmar::ui {

OverrideCursor::OverrideCursor(Qt::CursorShape shape)
{
    QGuiApplication::setOverrideCursor(QCursor(shape));
}

OverrideCursor::~OverrideCursor()
{
    QGuiApplication::restoreOverrideCursor();
}

} // namespace zelmar::ui
