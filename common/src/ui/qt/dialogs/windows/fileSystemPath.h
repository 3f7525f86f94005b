#pragma once

#include <QString>

#include <optional>

struct IShellItem;

/// The path of `item` (null is none), in the form that the system gives it; nothing when it has no place in the file
/// system.
std::optional<QString> fileSystemPath(IShellItem* item);
