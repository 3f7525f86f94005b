#pragma once

#include "internal_export.h"

#include <QString>

#include <optional>

struct IShellItem;

/// The path of `item` (null is none), in the form that the system gives it; nothing when it has no place in the file
/// system.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<QString> fileSystemPath(IShellItem* item);
