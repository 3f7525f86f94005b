#pragma once

#include "internal_export.h"

#include <QString>

/// The name filter that shows what matches a typed pattern in place of the filter `selected`: its description, that is
/// everything before its first "(", and then the pattern in brackets. Runs of white space become one blank, and none
/// is left at the ends, as QFileDialog keeps its filters.
///
/// "Data files (*.dat *.plt)" and "run*" give "Data files (run*)"; "Everything" and "a*" give "Everything(a*)".
COMMON_UI_QT_INTERNAL_EXPORT QString temporaryNameFilter(const QString& selected, const QString& pattern);
