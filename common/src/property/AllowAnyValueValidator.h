#pragma once

#include "property/ValidatorInterface.h"

namespace zelmar {

/// A validator that accepts every value. Its base class is virtual, so that a validator which combines this one with
/// others has a single ValidatorInterface.
///
/// Kept for existing callers, see docs/compatibility.md: virtual-validator-base.
template <typename T>
class AllowAnyValueValidator : public virtual ValidatorInterface<T>
{
public:
    ValidationResult validate(const T& /*value*/) const override { return ValidationResult(); }
};

} // namespace zelmar
