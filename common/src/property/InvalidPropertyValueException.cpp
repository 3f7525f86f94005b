#include "property/InvalidPropertyValueException.h"

#include <utility>

namespace zelmar {

InvalidPropertyValueException::InvalidPropertyValueException(std::string message)
    : ExceptionBase(std::move(message))
{
}

InvalidPropertyValueException::~InvalidPropertyValueException() = default;

} // namespace zelmar
