#pragma once

#include "internal_export_p.h"

#include <QString>

namespace zelmar::internal {

/// Estimates whether `text` can become a number from `minimum` to `maximum` when the user adds digits to it.
///
/// `text` has no prefix, suffix or surrounding white space. `decimals`, at most 12, is the number of digits after the
/// decimal point that are compared. With a negative value the bounds have as many as QString::number() writes for it.
///
/// The integral part and the fraction are tested separately. An exponent belongs to neither of them, bounds that do not
/// fit into 64 bits count as 0, and for a fraction without an integral part the digit 0 is tested.
///
/// Kept for existing callers, see docs/compatibility.md: intermediate-value-estimate.
COMMON_UI_QT_INTERNAL_EXPORT bool canTextGrowIntoRange(const QString& text, double minimum, double maximum,
                                                       int decimals);

} // namespace zelmar::internal
