#pragma once

#include "internal_export_p.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace zelmar::internal {

/// Splits `joined` at ";;" and removes the blanks around each filter. Empty parts between two separators are skipped
/// before blanks are removed, so that a part of blanks becomes an empty filter.
///
/// Compatibility: blank-filter-part-stays
COMMON_UI_QT_INTERNAL_EXPORT QStringList splitNameFilters(const QString& joined);

/// Joins `filters` (UTF-8) with ";;".
COMMON_UI_QT_INTERNAL_EXPORT std::string joinNameFilters(const std::vector<std::string>& filters);

} // namespace zelmar::internal
