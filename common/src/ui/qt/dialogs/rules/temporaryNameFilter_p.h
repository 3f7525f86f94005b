#pragma once

#include "internal_export_p.h"

#include <QString>

namespace zelmar::internal {

/// Returns the temporary name filter that replaces the filter `selected` after `pattern` was typed: the description of
/// `selected`, that is, everything before its first "(", followed by the pattern in parentheses. Runs of white space
/// become one blank, and white space at both ends is removed, because QFileDialog stores its filters in this form.
///
/// "Data files (*.dat *.plt)" and "run*" give "Data files (run*)". "Everything" and "a*" give "Everything(a*)".
///
/// Compatibility: pattern-without-blank
COMMON_UI_QT_INTERNAL_EXPORT QString temporaryNameFilter(const QString& selected, const QString& pattern);

/// Returns the pattern of a filter that temporaryNameFilter() has returned.
COMMON_UI_QT_INTERNAL_EXPORT QString patternOf(const QString& temporaryFilter);

} // namespace zelmar::internal
