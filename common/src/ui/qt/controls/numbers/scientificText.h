#pragma once

#include "internal_export.h"

#include <QString>

/// `value` with `digits` significant digits, plain or with an exponent, whichever printf() takes for "%.*G": 1.5E-07.
/// The decimal point is "." whatever the C library's locale is. Of `digits`, 0 counts as 1, and a number below 0 as 6.
COMMON_UI_QT_INTERNAL_EXPORT QString scientificText(double value, int digits);
