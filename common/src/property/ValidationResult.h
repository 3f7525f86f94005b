#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// What a validator has to say about a value: that it is good, or why it is not.
class COMMON_UI_QT_EXPORT ValidationResult
{
public:
    /// Valid.
    ValidationResult() = default;

    /// Not valid, for the reason `errorString` (UTF-8), which may be empty.
    explicit ValidationResult(std::string errorString);

    ValidationResult(const ValidationResult&) = default;
    ValidationResult(ValidationResult&&) noexcept = default;
    ValidationResult& operator=(const ValidationResult&) = default;
    ValidationResult& operator=(ValidationResult&&) noexcept = default;
    virtual ~ValidationResult() = default; // inline: setting a value makes and drops one

    bool isValid() const { return m_valid; }

    /// Empty for a valid result.
    std::string errorString() const { return m_errorString; }

private:
    bool m_valid = true;
    std::string m_errorString;
};

} // namespace zelmar
