#include "ui/qt/dialogs/rules/defaultExtension_p.h"

#include <boost/filesystem/path.hpp>

#include <algorithm>

namespace zelmar::internal {

namespace {

bool needsExtension(const QString& name)
{
    return !name.contains(QLatin1Char('.')) || name.endsWith(QLatin1Char('.'));
}

/// Returns whether a name filter has `unit` around or between its extensions.
bool separatesExtensions(QChar unit)
{
    return unit.isSpace() || unit == QLatin1Char('(') || unit == QLatin1Char(')') || unit == QLatin1Char('*');
}

} // namespace

QString extensionOfFilter(const QString& filter)
{
    QString extension = filter.mid(filter.lastIndexOf(QLatin1Char('.')));
    const auto end = std::remove_if(extension.begin(), extension.end(), separatesExtensions);
    extension.truncate(int(end - extension.begin()));
    return extension;
}

std::string withDefaultExtension(const std::string& name, const QString& filter)
{
    const QString extension = extensionOfFilter(filter);
    if (extension.isEmpty() || !needsExtension(QString::fromStdString(name)))
        return name;
    boost::filesystem::path path(name);
    path.replace_extension(boost::filesystem::path(extension.toStdString()));
    return path.generic_string();
}

} // namespace zelmar::internal
