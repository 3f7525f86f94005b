#pragma once

#include "internal_export.h"

#include <string>
#include <vector>

/// `names` (UTF-8) as file dialogs take several at once: each in double quotes, with a blank behind it, the last one
/// too. Empty names are left out.
COMMON_UI_QT_INTERNAL_EXPORT std::string quotedNames(const std::vector<std::string>& names);
