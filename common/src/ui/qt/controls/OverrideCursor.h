#pragma once

#include "common_ui_qt_export.h"

#include <Qt>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A guard that shows an override cursor over all windows of the application during its lifetime.
///
///     {
///         const zelmar::ui::OverrideCursor cursor(Qt::WaitCursor);
///         readLargeFile(); // may throw
///     } // the previous cursor is restored
///
/// The guard pushes one entry onto the override cursor stack of QGuiApplication and pops one entry when it is
/// destroyed. Guards must be destroyed in the reverse order of their creation: create them in blocks, never on the
/// heap. The destructor pops the top entry, whoever pushed it, so code within the block must leave the stack at the
/// same depth.
///
/// The cursor does not prevent mouse clicks. If the event loop keeps running, use Qt::BusyCursor or no guard.
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
