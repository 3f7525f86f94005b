#pragma once

#include "internal_export_p.h"

#include <QString>

namespace zelmar::internal {

/// Appends the shortest text from which `value` can be read back exactly.
///
/// The text is identical to that of QVariant::toString() and QString::number(value, 'g',
/// QLocale::FloatingPointShortest). For most numbers this function takes a fraction of their time, because it needs
/// no intermediate string and converts the digits faster.
COMMON_UI_QT_INTERNAL_EXPORT void appendShortestText(QString& text, double value);

} // namespace zelmar::internal
