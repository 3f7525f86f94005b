#pragma once

#include "common_ui_qt_export.h"
#include "property/ExceptionBase.h"

#include <string>

namespace zelmar {

/// Thrown by value where a property's validator refuses a value; its message is the validator's.
class COMMON_UI_QT_EXPORT InvalidPropertyValueException : public ExceptionBase
{
public:
    explicit InvalidPropertyValueException(std::string message);
    InvalidPropertyValueException(const InvalidPropertyValueException&) noexcept = default;
    InvalidPropertyValueException& operator=(const InvalidPropertyValueException&) noexcept = default;
    ~InvalidPropertyValueException() override;
};

} // namespace zelmar
