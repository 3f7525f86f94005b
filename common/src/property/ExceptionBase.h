#pragma once

#include "common_ui_qt_export.h"

#include <exception>
#include <memory>
#include <string>

namespace zelmar {

/// The base of the exceptions that this library throws.
class COMMON_UI_QT_EXPORT ExceptionBase : public std::exception
{
public:
    /// `message`: UTF-8, for a person to read.
    explicit ExceptionBase(std::string message);
    ExceptionBase(const ExceptionBase&) noexcept = default;
    ExceptionBase& operator=(const ExceptionBase&) noexcept = default;
    ~ExceptionBase() override;

    /// The message; valid as long as this object or a copy of it is there.
    const char* what() const noexcept override;

private:
    std::shared_ptr<const std::string> m_message; // shared: copying an exception must not throw another
};

} // namespace zelmar
