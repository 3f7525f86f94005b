#pragma once

#include "internal_export.h"

#include <QtGlobal>

#include <optional>

/// Whether `number`, as a part of what is being typed, can become a number from `low` to `high` when digits are added
/// anywhere. Answers with the number that it is taken for, and with nothing when it cannot.
///
/// `number` itself when it is in the range. Otherwise the highest of the numbers from `high` down that has the digits
/// of `number` among its own, in their order; signs do not count. Only the first 500,000 numbers are looked at: when
/// none of them will do, any number does, and the answer is `number`. With `high` below `low` there is none.
///
/// The candidates are not tried one after the other: each digit of the answer is found directly, in less than a
/// microsecond.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<qint64> numberWithDigits(qint64 number, qint64 low, qint64 high);
