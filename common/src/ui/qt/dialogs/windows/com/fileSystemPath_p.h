#pragma once

#include "internal_export_p.h"

#include <QString>

#include <optional>

struct IShellItem;

namespace zelmar::internal {

/// Returns the file system path of `item` in the system's own form. Returns nothing if the item is null or is not in
/// the file system.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<QString> fileSystemPath(IShellItem* item);

} // namespace zelmar::internal
