#pragma once

#include <QString>
#include <QTemporaryDir>

/// Locales of the C library for the life of the object, built from their sources where the system does not have all of
/// them: none needs to be installed. Afterwards the locale of the tests is in force again.
class BuiltLocales
{
public:
    BuiltLocales();
    ~BuiltLocales();
    BuiltLocales(const BuiltLocales&) = delete;
    BuiltLocales& operator=(const BuiltLocales&) = delete;

    /// Puts `name`, e.g. "de_DE" in force with all its categories. Whether that was possible.
    bool enter(const QString& name);

private:
    QTemporaryDir m_folder;
};
