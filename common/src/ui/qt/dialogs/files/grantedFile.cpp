#include "ui/qt/dialogs/files/grantedFile_p.h"

#include <QDir>
#include <QString>
#include <QStringList>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace zelmar::internal {

bool isGrantedFile(const QString& path)
{
#ifdef Q_OS_UNIX
    // A Snap has a runtime folder of its own below that of the user, and a Flatpak may see the mount at another place.
    QStringList mounts{QStringLiteral("/run/user/%1/doc").arg(getuid()), QStringLiteral("/run/flatpak/doc")};
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtimeFolder.isEmpty())
        mounts += runtimeFolder + QStringLiteral("/doc");
    const QString file = QDir::cleanPath(path);
    return std::any_of(mounts.begin(), mounts.end(), [&file](const QString& mount) {
        return file.startsWith(QDir::cleanPath(mount) + QLatin1Char('/'));
    });
#else
    Q_UNUSED(path)
    return false;
#endif
}

} // namespace zelmar::internal
