#include "ui/qt/dialogs/rules/defaultExtension_p.h"

#include <boost/filesystem/path.hpp>

#include <QRegExp>

namespace zelmar::internal {

namespace {

bool needsExtension(const QString& name)
{
    const QRegExp extension(QStringLiteral("\\.[^\\.]*$"));
    return !name.contains(extension) || name.endsWith(QLatin1Char('.'));
}

} // namespace

QString extensionOfFilter(const QString& filter)
{
    QString extension = filter.mid(filter.lastIndexOf(QLatin1Char('.')));
    return extension.remove(QRegExp(QStringLiteral("[\\s\\(\\)\\*]")));
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
