#include "SystemSaveFaults.h"

#include "SaveFaultPlaces.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <utility>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

const char mountPoint[] = "/mounted";

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

QString addLink(const QString& path, const QString& target)
{
    checkFault(symlink(native(target).constData(), native(path).constData()) == 0, "symlink");
    return path;
}

QString addNode(const QString& path, mode_t mode, dev_t device = 0)
{
    checkFault(mknod(native(path).constData(), mode, device) == 0, "mknod");
    checkFault(chmod(native(path).constData(), mode & 0777) == 0, "chmod");
    return path;
}

/// Creates a device for the test that discards what is written to it, like /dev/null, so that no test touches /dev.
QString addNullDevice(const QString& path, mode_t mode)
{
    return addNode(path, S_IFCHR | mode, makedev(1, 3));
}

QString mountFolder(const QString& path, const char* options)
{
    addFolder(path);
    checkFault(mount("none", native(path).constData(), "tmpfs", 0, options) == 0, "mount");
    return path;
}

void makeReadOnly(const QString& path)
{
    checkFault(mount("none", native(path).constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, "mode=0777") == 0, "remount");
}

/// Fills all free space of the file system at `folder`.
void fill(const QString& folder)
{
    QFile file(folder + QStringLiteral("/filler"));
    checkFault(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered), "filler");
    while (file.write(QByteArray(4096, 'x')) > 0) {
    }
}

std::vector<SaveFault> fileFaults()
{
    return {
        {"nothing is wrong: neighbour with a name that is no UTF-8",
         [](const QString& f) {
             const QByteArray name = native(f) + "/caf\xE9\xFF.dat";
             const int file = open(name.constData(), O_CREAT | O_WRONLY, 0666);
             checkFault(file >= 0 && close(file) == 0, "odd name");
             return at(f, "new.dat");
         },
         {},
         true},
        {"link to a read-only file",
         [](const QString& f) { return addLink(at(f, "link.dat"), addFile(at(f, "old.dat"), Access::NoWriting)); },
         {"overwrite", "unable"},
         false},
        // The targets of these links do not exist, so the probe only tests whether their folder is writable. The caller
        // discovers the dangling link when it writes.
        {"dangling link", [](const QString& f) { return addLink(at(f, "link.dat"), at(f, "nowhere.dat")); }, {}, true},
        {"loop of links", [](const QString& f) { return addLink(at(f, "loop.dat"), at(f, "loop.dat")); }, {}, true},
        // On other systems a folder cannot be removed while a dialog shows it.
        {"folder deleted after the choice",
         [](const QString& f) { return addFolder(at(f, "short-lived")) + QStringLiteral("/new.dat"); },
         {"unable"},
         false,
         [](const QString& f) { QDir(f).rmdir(at(f, "short-lived")); }},
        {"pipe that nobody reads",
         [](const QString& f) { return addNode(at(f, "pipe.dat"), S_IFIFO | 0666); },
         {"overwrite", "unable"},
         false},
    };
}

std::vector<SaveFault> deviceFaults()
{
    return {
        {"device that may be written",
         [](const QString& f) { return addNullDevice(f + QStringLiteral("/null.dat"), 0666); },
         {"overwrite"},
         true},
        {"device that may not be written",
         [](const QString& f) { return addNullDevice(f + QStringLiteral("/null.dat"), 0600); },
         {"overwrite", "unable"},
         false},
    };
}

std::vector<SaveFault> mountedFaults()
{
    return {
        {"full file system: new file",
         [](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "size=64k,mode=0777");
             fill(mounted);
             return mounted + QStringLiteral("/new.dat"); // the probe does not test for free space
         },
         {},
         true},
        {"full file system: existing file",
         [](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "size=64k,mode=0777");
             QString file = addFile(mounted + QStringLiteral("/old.dat"));
             fill(mounted);
             return file;
         },
         {"overwrite"},
         true},
        {"file system without room for another file",
         [](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "nr_inodes=2,mode=0777");
             addFile(mounted + QStringLiteral("/old.dat"));
             return mounted + QStringLiteral("/new.dat");
         },
         {"unable"},
         false},
        {"read-only file system: new file",
         [](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "mode=0777");
             makeReadOnly(mounted);
             return mounted + QStringLiteral("/new.dat");
         },
         {"unable"},
         false},
        {"read-only file system: existing file",
         [](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "mode=0777");
             QString file = addFile(mounted + QStringLiteral("/old.dat"));
             makeReadOnly(mounted);
             return file;
         },
         {"overwrite", "unable"},
         false},
    };
}

/// Moves this thread into a mount namespace of its own, which unmounts everything when it ends. Returns the reason for
/// a failure, or an empty text.
QString enterOwnMounts()
{
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return QStringLiteral("mounting is refused: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    return {};
}

QString whyNothingIsMounted()
{
    static const QString reason = enterOwnMounts();
    return reason;
}

QString whyThereAreNoDevices()
{
    static const QString reason = [] {
        const QTemporaryDir folder;
        if (mknod(native(folder.filePath(QStringLiteral("null"))).constData(), S_IFCHR | 0600, makedev(1, 3)) == 0)
            return QString();
        return QStringLiteral("making devices is refused: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    }();
    return reason;
}

} // namespace

std::vector<SaveFault> systemSaveFaults()
{
    std::vector<SaveFault> all = fileFaults();
    const auto add = [&all](std::vector<SaveFault> more) {
        std::move(more.begin(), more.end(), std::back_inserter(all));
    };
    if (whyThereAreNoDevices().isEmpty())
        add(deviceFaults());
    if (whyNothingIsMounted().isEmpty())
        add(mountedFaults());
    return all;
}

QString whyFaultsAreMissing()
{
    QStringList reasons{whyNothingIsMounted(), whyThereAreNoDevices()};
    reasons.removeAll({});
    return reasons.join(QStringLiteral("; "));
}

void removeSaveFaults(const QString& folder)
{
    umount2(native(folder + QLatin1String(mountPoint)).constData(), MNT_DETACH);
    const std::filesystem::path path = native(folder).toStdString();
    if (!std::filesystem::exists(path))
        return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.symlink_status().type() == std::filesystem::file_type::directory)
            std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all);
    }
    std::filesystem::remove_all(path); // Qt cannot remove a file whose name is not valid UTF-8
}
