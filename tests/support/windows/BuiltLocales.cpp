#include "BuiltLocales.h"

#include <clocale>

#include <windows.h>

// The locales are part of Windows; its C library finds them by their English names.
BuiltLocales::BuiltLocales() = default;

BuiltLocales::~BuiltLocales()
{
    std::setlocale(LC_ALL, "C");
}

bool BuiltLocales::enter(const QString& name)
{
    const std::wstring systemName = QString(name).replace(QLatin1Char('_'), QLatin1Char('-')).toStdWString();
    wchar_t language[LOCALE_NAME_MAX_LENGTH] = {};
    return GetLocaleInfoEx(systemName.c_str(), LOCALE_SENGLISHLANGUAGENAME, language, LOCALE_NAME_MAX_LENGTH) != 0
           && _wsetlocale(LC_ALL, language) != nullptr;
}
