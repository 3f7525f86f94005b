#include "ui/qt/dialogs/save/grantedFile_p.h"

#include <QDir>
#include <QString>

namespace zelmar::internal {

bool isGrantedFile(const QString& path)
{
#ifdef Q_OS_UNIX
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtimeFolder.isEmpty() && QDir::cleanPath(path).startsWith(QDir::cleanPath(runtimeFolder + "/doc") + '/');
#else
    Q_UNUSED(path)
    return false;
#endif
}

} // namespace zelmar::internal
