#pragma once

#include "internal_export_p.h"

#include <QString>
#include <QVariantMap>

namespace zelmar::internal {

struct PortalQuestion;

/// Returns the portal's method for `question`.
COMMON_UI_QT_INTERNAL_EXPORT QString portalMethod(const PortalQuestion& question);

/// Returns the options of a call of that method. `token` becomes the last part of the path of the request. Options that
/// have no value are left out. Asks the file system whether the proposed name is that of an existing file.
COMMON_UI_QT_INTERNAL_EXPORT QVariantMap portalOptions(const PortalQuestion& question, const QString& token);

/// Returns a pattern that accepts the same names as `pattern` in any letter case, because a portal compares the case:
/// "*.dat" becomes "*.[dD][aA][tT]". Leaves what is between brackets as it is.
COMMON_UI_QT_INTERNAL_EXPORT QString anyCasePattern(const QString& pattern);

} // namespace zelmar::internal
