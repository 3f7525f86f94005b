#pragma once

#include "property/ValidationResult.h"

namespace zelmar {

/// An interface that decides which values a property accepts.
///
///     struct NotNegative : zelmar::ValidatorInterface<int>
///     {
///         zelmar::ValidationResult validate(const int& value) const override
///         {
///             return value < 0 ? zelmar::ValidationResult("must not be negative") : zelmar::ValidationResult();
///         }
///     };
template <typename T>
class ValidatorInterface
{
public:
    /// Returns whether `value` is valid. A property calls this function at the start of each setValue(), even if
    /// `value` equals its current value.
    virtual ValidationResult validate(const T& value) const = 0;

    virtual ~ValidatorInterface() = default;
};

} // namespace zelmar
