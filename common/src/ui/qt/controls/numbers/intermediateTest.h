#pragma once

#include "internal_export.h"

#include <QString>

/// Whether `text`, a number without prefix, suffix and white space, can become one from `minimum` to `maximum` when
/// digits are added to it. `decimals` digits behind the point are looked at, at most 12; none when it is below 1.
///
/// This is an estimate, and kept as it is on purpose: integral part and fraction are looked at one by one, an exponent
/// is no part of either, bounds beyond 64 bits count as 0, and a fraction without an integral part is taken for the
/// digit 0.
COMMON_UI_QT_INTERNAL_EXPORT bool canBecomeNumberInRange(const QString& text, double minimum, double maximum,
                                                         int decimals);
