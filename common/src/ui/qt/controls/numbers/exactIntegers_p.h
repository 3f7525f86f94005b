#pragma once

namespace zelmar::internal {

/// 2^53. QString::number() writes an integral double below this magnitude exactly, whatever the number of digits.
constexpr double exactIntegers = 9007199254740992.0;

} // namespace zelmar::internal
