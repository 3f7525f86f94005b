#pragma once

#include "internal_export_p.h"

#include <QtGlobal>

#include <optional>

namespace zelmar::internal {

/// Returns the integer from `low` to `high` that `number` can become when the user inserts further digits anywhere, or
/// nothing if there is none.
///
/// - If `number` is in the range, the result is `number` itself.
/// - Otherwise the result is the highest integer in the range whose decimal digits contain the digits of `number` as a
///   subsequence. Signs are ignored.
/// - Only the 500,000 highest integers of the range are candidates. If the range has at least that many integers and
///   none of the candidates matches, the result is `number`: a wide range is accepted without a search.
/// - If `high` is below `low`, there is no result.
///
/// The function computes each digit of the result directly instead of trying the candidates, which takes less than a
/// microsecond.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<qint64> growDigitsIntoRange(qint64 number, qint64 low, qint64 high);

} // namespace zelmar::internal
