#pragma once

#include "internal_export_p.h"

#include <boost/filesystem/operations.hpp>

namespace zelmar::internal {

/// Returns whether a file system entry of this type counts as existing: every type but "not found" and "status error".
COMMON_UI_QT_INTERNAL_EXPORT bool countsAsExisting(boost::filesystem::file_type type);

/// Returns the type of the entry at `path` after following symbolic links. An error is a type of its own and not an
/// exception. A string is converted by the codecvt facet that the application has set for boost::filesystem::path,
/// which should be one for UTF-8.
COMMON_UI_QT_INTERNAL_EXPORT boost::filesystem::file_type fileTypeOf(const boost::filesystem::path& path);

} // namespace zelmar::internal
