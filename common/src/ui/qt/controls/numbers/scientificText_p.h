#pragma once

#include "internal_export_p.h"

#include <QString>

namespace zelmar::internal {

/// Returns `value` with `digits` significant digits, in fixed or exponent notation as printf() chooses for "%.*G": for
/// example "1.5E-07". The decimal point is "." regardless of the C library's locale. 0 digits count as 1, and a
/// negative number of digits counts as 6.
COMMON_UI_QT_INTERNAL_EXPORT QString scientificText(double value, int digits);

} // namespace zelmar::internal
