#include "property/ValidationResult.h"

#include <utility>

namespace zelmar {

ValidationResult::ValidationResult(std::string errorString)
    : m_valid(false)
    , m_errorString(std::move(errorString))
{
}

} // namespace zelmar
