#pragma once

#include "internal_export.h"

#include <boost/filesystem/path.hpp>

#include <string>

/// A path from UTF-8 text. On Windows narrow text would be taken to be in the system's code page; elsewhere the bytes
/// are the path, also where they are no valid UTF-8.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::path utf8Path(const std::string& text);

/// `path` as UTF-8 text with slashes between its names.
COMMON_UI_QT_INTERNAL_EXPORT std::string genericUtf8(const boost::filesystem::path& path);
