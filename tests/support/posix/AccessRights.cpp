#include "AccessRights.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <sys/stat.h>

void setAccess(const QString& path, Access access)
{
    mode_t mode = 0;
    if (access == Access::Everything)
        mode = 0666;
    else if (access == Access::NoWriting)
        mode = 0444;
    if (mode != 0 && QFileInfo(path).isDir())
        mode |= 0111;
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("Cannot change who may use %s: %s", qPrintable(path), std::strerror(errno));
}
