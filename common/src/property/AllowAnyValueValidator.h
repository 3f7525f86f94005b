#pragma once

#include "property/ValidatorInterface.h"

namespace zelmar {

/// Finds every value valid. The base is virtual on purpose: a validator that combines this one with others has one
/// ValidatorInterface.
template <typename T>
class AllowAnyValueValidator : public virtual ValidatorInterface<T>
{
public:
    ValidationResult validate(const T& /*value*/) const override { return ValidationResult(); }
};

} // namespace zelmar
