#pragma once

#include "internal_export_p.h"

#include <string>

namespace zelmar::internal {

/// Returns whether the file `name` (UTF-8, absolute or relative to the current folder) can be written now. Opens an
/// existing file for appending and closes it again. For a new file, creates a temporary file in its folder and removes
/// it again; below the mount of a document portal, where nothing else is granted, creates and removes the file itself.
///
/// Changes no existing file and leaves no new file behind. Does not check whether there is free space. Never waits for
/// the reader of a pipe or for a device.
COMMON_UI_QT_INTERNAL_EXPORT bool canBeWritten(const std::string& name);

} // namespace zelmar::internal
