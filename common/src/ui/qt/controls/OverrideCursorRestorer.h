#pragma once

#include "common_ui_qt_export.h"

#include <QCursor>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A guard that removes the application's override cursor during its lifetime and restores it afterwards, for example
/// while a question is asked during a long operation.
///
///     const zelmar::ui::OverrideCursor wait(Qt::WaitCursor);
///     readLargeFile();
///     {
///         const zelmar::ui::OverrideCursorRestorer usual;
///         QMessageBox::question(&window, "Read run", "There is a newer one. Read it, too?");
///     } // the wait cursor is restored
///
/// The guard pops exactly one entry, the top one, from the override cursor stack of QGuiApplication and pushes the same
/// cursor again when it is destroyed. If the stack has further entries, the next one is shown meanwhile.
///
/// Known trap: an override cursor must be active when the guard is created. An empty stack is an error of the caller,
/// which is not checked and causes undefined behaviour.
///
/// Guards must be destroyed in the reverse order of their creation: create them in blocks. GUI thread only.
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
    QCursor m_cursor; ///< the cursor to restore
};

} // namespace ui
} // namespace zelmar
