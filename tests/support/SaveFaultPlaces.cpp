#include "SaveFaultPlaces.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>

void checkFault(bool done, const char* what)
{
    if (!done)
        qFatal("Cannot set up a fault: %s: %s", what, std::strerror(errno));
}

QString at(const QString& folder, const char* name)
{
    return folder + QLatin1Char('/') + QLatin1String(name);
}

QString addFile(const QString& path, Access access)
{
    QFile file(path);
    checkFault(file.open(QIODevice::WriteOnly) && file.write("contents") == 8, "write");
    file.close();
    setAccess(path, access);
    return path;
}

QString addFolder(const QString& path, Access access)
{
    checkFault(QDir().mkpath(path), "mkdir");
    setAccess(path, access);
    return path;
}
