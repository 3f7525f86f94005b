#pragma once

#include "internal_export.h"

#include <QString>
#include <QValidator>

// How the text of a number field becomes a number: with "." as decimal point and "," between groups of digits, as
// American English has them, whatever the locale is.

/// What a field's text is judged by.
struct NumberRules
{
    double minimum = 0;
    double maximum = 0;
    int decimals = 0; ///< digits that count when a text may still become a number in the range; at most 12
    QString prefix = {};
    QString suffix = {};
    QString specialValueText = {};
};

/// What a text was taken for.
struct NumberReading
{
    QString text = {}; ///< with prefix and suffix, without what was removed to understand it
    QValidator::State state = QValidator::Invalid;
    double value = 0; ///< of a text that is not acceptable: a bound of the range
};

/// `input` without prefix, suffix and the white space around the number; `position`, the cursor's, moves by the white
/// space. Where there is a special text, `input` equal to it keeps both.
COMMON_UI_QT_INTERNAL_EXPORT QString strippedNumber(const QString& input, int& position, const NumberRules& rules);

/// Reads `input` by `rules`. `last` is the reading before: its answer is given again for its text, whatever the rules
/// are by now, and otherwise takes this one.
COMMON_UI_QT_INTERNAL_EXPORT const NumberReading& readNumber(const QString& input, int& position,
                                                             const NumberRules& rules, NumberReading& last);
