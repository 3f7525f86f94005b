#pragma once

#include "property/ValidationResult.h"

namespace zelmar {

/// Decides which values a property takes.
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
    /// Called before each change, and for the value that is there already, too.
    virtual ValidationResult validate(const T& value) const = 0;

    virtual ~ValidatorInterface() = default;
};

} // namespace zelmar
