#pragma once

#include <QString>
#include <QTemporaryDir>

/// Locales of the C library, built from its sources for the life of the object: none of them needs to be installed.
/// Afterwards C.UTF-8 is in force again.
class BuiltLocales
{
public:
    BuiltLocales();
    ~BuiltLocales();
    BuiltLocales(const BuiltLocales&) = delete;
    BuiltLocales& operator=(const BuiltLocales&) = delete;

    /// Builds `name`, e.g. "de_DE", and puts it in force with all its categories. Whether that was possible.
    bool enter(const QString& name);

private:
    QTemporaryDir m_folder;
};
