#include "ui/qt/dialogs/writeProbe.h"

#include "ui/qt/dialogs/rules/fileExistence.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

bool opensForAppending(const QString& name)
{
    // Only an existing file: one that somebody deletes right now is not to come back empty.
    QFile file(name);
    return file.open(QIODevice::Append | QIODevice::ExistingOnly);
}

#ifdef Q_OS_UNIX
/// The same for pipes, sockets and devices, whose open() would wait: for the other end, or for a line to come up.
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

bool takesANewFile(const QDir& folder)
{
    QTemporaryFile file(folder.path() + QStringLiteral("/CheckingForWritePermissionsXXXXXX"));
    // Where the system can, Qt makes a file without a name, which does not exist before its name is asked for.
    return file.open() && !file.fileName().isEmpty() && file.exists();
}

} // namespace

bool canBeWritten(const std::string& name)
{
    const QString path = QString::fromStdString(name);
    const boost::filesystem::file_type type = fileTypeOf(name);
    if (!countsAsExisting(type))
        return takesANewFile(QFileInfo(path).absoluteDir());
    if (type == boost::filesystem::regular_file || type == boost::filesystem::directory_file)
        return opensForAppending(path);
    return opensWithoutWaiting(path);
}
