#pragma once

#include "internal_export.h"

#include <boost/filesystem/operations.hpp>

#include <string>

/// Whether something of this type counts as an existing entry: anything of which the file system does not say that it
/// is not there, or cannot tell.
COMMON_UI_QT_INTERNAL_EXPORT bool countsAsExisting(boost::filesystem::file_type type);

/// What is at `name` (UTF-8), behind symbolic links. Trouble on the way is a type of its own, not an exception.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::file_type fileTypeOf(const std::string& name);
