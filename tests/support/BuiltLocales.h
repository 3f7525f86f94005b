#pragma once

#include <QString>
#include <QTemporaryDir>

/// A guard that provides locales of the C library during its lifetime. It builds them from their sources if the system
/// does not have all of them, so that none has to be installed. The destructor restores the locale of the tests.
class BuiltLocales
{
public:
    BuiltLocales();
    ~BuiltLocales();
    BuiltLocales(const BuiltLocales&) = delete;
    BuiltLocales& operator=(const BuiltLocales&) = delete;

    /// Sets the locale `name`, for example "de_DE", for all categories. Returns whether that succeeded.
    bool enter(const QString& name);

private:
    QTemporaryDir m_folder;
};
