#pragma once

#include "common_ui_qt_export.h"

#include <exception>
#include <memory>
#include <string>

namespace zelmar {

/// The base class of the exceptions that this library throws.
class COMMON_UI_QT_EXPORT ExceptionBase : public std::exception
{
public:
    /// Constructs the exception with `message`, a UTF-8 text that a person can read.
    explicit ExceptionBase(std::string message);
    ExceptionBase(const ExceptionBase&) noexcept = default;
    ExceptionBase& operator=(const ExceptionBase&) noexcept = default;
    ~ExceptionBase() override;

    /// Returns the message. The pointer is valid as long as this object or a copy of it exists.
    const char* what() const noexcept override;

private:
    std::shared_ptr<const std::string> m_message; // shared, because copying an exception must not throw
};

} // namespace zelmar
