#pragma once

#include "internal_export_p.h"

class QString;

namespace zelmar::internal {

/// Returns whether `path` is below the mount of a desktop's document portal, which shows sandboxed applications the
/// files that their user has granted them. Beside a granted file other names can be created there, but they end as
/// hidden files in the user's folder.
COMMON_UI_QT_INTERNAL_EXPORT bool isGrantedFile(const QString& path);

} // namespace zelmar::internal
