#pragma once

#include "internal_export.h"

#include <QString>

/// Appends the shortest text that stands for `value` and no other double, the one of QVariant::toString() and
/// QString::number(value, 'g', QLocale::FloatingPointShortest), to the letter. Most numbers take a fraction of their
/// time: there is no string in between, and the digits are found faster.
COMMON_UI_QT_INTERNAL_EXPORT void appendShortestText(QString& text, double value);
