#pragma once

#include "internal_export_p.h"

#include <boost/filesystem/operations.hpp>

namespace zelmar::internal {

/// Returns whether a file system entry of this type counts as existing: every type but "not found" and "status error".
COMMON_UI_QT_INTERNAL_EXPORT bool countsAsExisting(boost::filesystem::file_type type);

/// Returns the type of the entry at `path` after following symbolic links. Reports an error as the type "status error"
/// and not by an exception. If a string is passed, boost::filesystem::path converts it with the codecvt facet that the
/// application has set, which should be one for UTF-8.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::file_type fileTypeOf(const boost::filesystem::path& path);

} // namespace zelmar::internal
