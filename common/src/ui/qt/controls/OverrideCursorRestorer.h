#pragma once

#include "common_ui_qt_export.h"

#include <QCursor>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Takes the application's override cursor away for as long as it lives, and puts it back: for a question that is asked
/// in the middle of a wait.
///
///     const zelmar::ui::OverrideCursor wait(Qt::WaitCursor);
///     ...
///     {
///         const zelmar::ui::OverrideCursorRestorer usual;
///         QMessageBox::question(window, ...);
///     } // the wait cursor is back
///
/// It takes exactly one entry off QGuiApplication's stack of override cursors, the top one, and pushes that one back.
/// An entry below it is what the user sees meanwhile.
///
/// Known trap: there has to be an override cursor when it is made. An empty stack is an error of the caller that is not
/// looked for, and undefined behaviour.
///
/// Guards have to go in reverse order of their making: keep them in blocks. GUI thread only.
class COMMON_UI_QT_EXPORT OverrideCursorRestorer
{
public:
    OverrideCursorRestorer();
    ~OverrideCursorRestorer();
    OverrideCursorRestorer(const OverrideCursorRestorer&) = delete;
    OverrideCursorRestorer(OverrideCursorRestorer&&) = delete;
    OverrideCursorRestorer& operator=(const OverrideCursorRestorer&) = delete;
    OverrideCursorRestorer& operator=(OverrideCursorRestorer&&) = delete;

private:
    QCursor m_cursor; ///< what was on top
};

} // namespace ui
} // namespace zelmar
