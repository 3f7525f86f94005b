#pragma once

#include "internal_export.h"

#include <string>

/// Whether the file `name` (UTF-8, absolute or relative to the current folder) can be written now: an existing one is
/// opened for appending and closed again; for a new one a temporary file is made in its folder and removed.
///
/// Nothing that exists is changed, and nothing new stays. That there is room for the contents is not proved. Never
/// waits for a reader or a device.
COMMON_UI_QT_INTERNAL_EXPORT bool canBeWritten(const std::string& name);
