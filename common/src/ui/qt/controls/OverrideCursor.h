#pragma once

#include "common_ui_qt_export.h"

#include <Qt>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Shows one cursor over every window of the application for as long as it lives.
///
///     {
///         const zelmar::ui::OverrideCursor cursor(Qt::WaitCursor);
///         readLargeFile(); // may throw
///     } // the cursor from before is back
///
/// It pushes one entry on QGuiApplication's stack of override cursors and pops one, so guards have to go in reverse
/// order of their making: keep them in blocks, never on the heap. The entry that it pops is the top one, whoever has
/// pushed it; code in the block has to leave the stack as deep as it was.
///
/// The cursor alone keeps nobody from clicking. While the event loop runs on, use Qt::BusyCursor or none.
///
/// GUI thread only, with a running QGuiApplication.
class COMMON_UI_QT_EXPORT OverrideCursor
{
public:
    explicit OverrideCursor(Qt::CursorShape shape);
    ~OverrideCursor();
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor(OverrideCursor&&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;
    OverrideCursor& operator=(OverrideCursor&&) = delete;
};

} // namespace ui
} // namespace zelmar
