#include "ui/qt/dialogs/files/writeProbe_p.h"

#include "ui/qt/dialogs/files/fileExistence_p.h"
#include "ui/qt/dialogs/files/grantedFile_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace zelmar::internal {
namespace {

bool opensForAppending(const QString& name)
{
    // ExistingOnly prevents an empty new file if the file has been deleted meanwhile.
    QFile file(name);
    return file.open(QIODevice::Append | QIODevice::ExistingOnly);
}

#ifdef Q_OS_UNIX
/// Returns the same as opensForAppending(), but never waits: opening a pipe, a socket or a device may block until the
/// other end or the line is ready.
bool opensWithoutWaiting(const QString& name)
{
    const int file = ::open(QFile::encodeName(name).constData(), // NOLINT(cppcoreguidelines-pro-type-vararg)
                            O_WRONLY | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    return file >= 0 && ::close(file) == 0;
}
#else
bool opensWithoutWaiting(const QString& name)
{
    return opensForAppending(name);
}
#endif

/// Returns whether the file can be created, under no other name. Removes it again.
bool canBeCreated(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.remove();
}

/// Returns whether a file can be created in `folder`.
bool takesANewFile(const QDir& folder)
{
    QTemporaryFile file(folder.path() + QStringLiteral("/CheckingForWritePermissionsXXXXXX"));
    // Where the system supports it, Qt creates an unnamed file, which enters the folder only when its name is
    // requested.
    return file.open() && !file.fileName().isEmpty() && file.exists();
}

} // namespace

bool canBeWritten(const std::string& name)
{
    const QString path = QString::fromStdString(name);
    const boost::filesystem::file_type type = fileTypeOf(name);
    if (!countsAsExisting(type))
        return isGrantedFile(path) ? canBeCreated(path) : takesANewFile(QFileInfo(path).absoluteDir());
    if (type == boost::filesystem::regular_file || type == boost::filesystem::directory_file)
        return opensForAppending(path);
    return opensWithoutWaiting(path);
}

} // namespace zelmar::internal
