#include "property/ExceptionBase.h"

#include <utility>

namespace zelmar {

ExceptionBase::ExceptionBase(std::string message)
    : m_message(std::make_shared<const std::string>(std::move(message)))
{
}

ExceptionBase::~ExceptionBase() = default;

const char* ExceptionBase::what() const noexcept
{
    return m_message->c_str();
}

} // namespace zelmar
