#pragma once

#include "common_ui_qt_export.h"
#include "property/ExceptionBase.h"

#include <string>

namespace zelmar {

/// The exception that a property throws by value when its validator rejects a value. Its message is the error string of
/// the ValidationResult.
class COMMON_UI_QT_EXPORT InvalidPropertyValueException : public ExceptionBase
{
public:
    explicit InvalidPropertyValueException(std::string message);
    InvalidPropertyValueException(const InvalidPropertyValueException&) noexcept = default;
    InvalidPropertyValueException& operator=(const InvalidPropertyValueException&) noexcept = default;
    ~InvalidPropertyValueException() override;
};

} // namespace zelmar
