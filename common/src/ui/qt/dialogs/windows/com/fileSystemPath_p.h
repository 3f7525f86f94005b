#pragma once

#include "internal_export_p.h"

#include <QString>

#include <optional>

struct IShellItem;

namespace zelmar::internal {

/// Returns the file system path of `item` in the system's own form. Empty when the item is null or lies outside of the
/// file system.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<QString> fileSystemPath(IShellItem* item);

} // namespace zelmar::internal
