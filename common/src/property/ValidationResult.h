#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// The result of a validation: either valid, or invalid for a reason.
class COMMON_UI_QT_EXPORT ValidationResult
{
public:
    /// Constructs a valid result.
    ValidationResult() = default;

    /// Constructs an invalid result with the reason `errorString` (UTF-8), which may be empty.
    explicit ValidationResult(std::string errorString);

    ValidationResult(const ValidationResult&) = default;
    ValidationResult(ValidationResult&&) noexcept = default;
    ValidationResult& operator=(const ValidationResult&) = default;
    ValidationResult& operator=(ValidationResult&&) noexcept = default;
    virtual ~ValidationResult() = default; // inline for speed: each setValue() destroys a result

    bool isValid() const { return m_valid; }

    /// Returns the reason why the value is invalid, or an empty string for a valid result.
    std::string errorString() const { return m_errorString; }

private:
    bool m_valid = true;
    std::string m_errorString;
};

} // namespace zelmar
