#pragma once

#include "internal_export_p.h"

#include <boost/filesystem/path.hpp>

#include <string>

namespace zelmar::internal {

/// Makes a path from UTF-8. On Windows the path class would otherwise read narrow strings in the system's code page.
/// Elsewhere the bytes are the path, even if they are not valid UTF-8.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::path utf8Path(const std::string& text);

/// Converts `path` to UTF-8 with slashes as separators.
COMMON_UI_QT_INTERNAL_EXPORT std::string genericUtf8(const boost::filesystem::path& path);

} // namespace zelmar::internal
