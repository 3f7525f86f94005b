#include "ui/qt/controls/OverrideCursorRestorer.h"

#include <QGuiApplication>

namespace zelmar::ui {

OverrideCursorRestorer::OverrideCursorRestorer()
    : m_cursor(*QGuiApplication::overrideCursor())
{
    QGuiApplication::restoreOverrideCursor();
}

OverrideCursorRestorer::~OverrideCursorRestorer()
{
    QGuiApplication::setOverrideCursor(m_cursor);
}

} // namespace zelmar::ui
