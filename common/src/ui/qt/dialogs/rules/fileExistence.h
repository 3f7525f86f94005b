#pragma once

#include "internal_export.h"

#include <boost/filesystem/operations.hpp>

/// Whether something of this type counts as an existing entry: anything of which the file system does not say that it
/// is not there, or cannot tell.
COMMON_UI_QT_INTERNAL_EXPORT bool countsAsExisting(boost::filesystem::file_type type);

/// What is at `path`, behind symbolic links. Trouble on the way is a type of its own, not an exception. A text is taken
/// as a path by the conversion that the application has set for paths, which for UTF-8 names should be UTF-8.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::file_type fileTypeOf(const boost::filesystem::path& path);
