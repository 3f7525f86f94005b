#pragma once

#include "internal_export_p.h"

#include <QString>
#include <QValidator>

namespace zelmar::internal {

// Validates and converts the text of a number field. The decimal point is "." and the group separator is ",", as in
// American English, whatever the locale is.

/// The properties of a number field by which its text is validated.
struct NumberRules
{
    double minimum = 0;
    double maximum = 0;
    int decimals = 0; ///< digits after the point for canTextGrowIntoRange(); at most 12
    QString prefix = {};
    QString suffix = {};
    QString specialValueText = {};
};

/// The result of readNumber().
struct NumberReading
{
    /// The text with prefix and suffix, but without the separators that were removed in order to convert it.
    QString text = {};
    QValidator::State state = QValidator::Invalid;
    /// The number if the state is Acceptable. Otherwise the minimum of the range if its maximum is above 0, else the
    /// maximum.
    double value = 0;
};

/// Returns `input` without prefix, suffix and surrounding white space. An `input` that equals a non-empty special-value
/// text keeps prefix and suffix.
///
/// `position` is the cursor position as a code unit index; any value is allowed. It moves back by the length of the
/// removed white space and may become negative.
COMMON_UI_QT_INTERNAL_EXPORT QString strippedNumber(const QString& input, int& position, const NumberRules& rules);

/// Reads `input` by `rules`, stores the result in `last` and returns `last`. `position` is the cursor position as for
/// strippedNumber(); it also moves back if group separators are removed.
///
/// `last` holds the previous result. If `input` is its text and not empty, the function returns it unchanged, even if
/// the rules have changed since.
///
/// Kept for existing callers, see docs/compatibility.md: shared-validation-cache.
COMMON_UI_QT_INTERNAL_EXPORT const NumberReading& readNumber(const QString& input, int& position,
                                                             const NumberRules& rules, NumberReading& last);

} // namespace zelmar::internal
