#include "SaveFaults.h"

#include "DialogDriver.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

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

void check(bool done, const char* what)
{
    if (!done)
        qFatal("Cannot set up a fault: %s: %s", what, std::strerror(errno));
}

QString addFile(const QString& path, mode_t mode)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly) && file.write("contents") == 8, "write");
    file.close();
    check(chmod(native(path).constData(), mode) == 0, "chmod");
    return path;
}

QString addFolder(const QString& path, mode_t mode)
{
    check(QDir().mkpath(path), "mkdir");
    check(chmod(native(path).constData(), mode) == 0, "chmod");
    return path;
}

QString addLink(const QString& path, const QString& target)
{
    check(symlink(native(target).constData(), native(path).constData()) == 0, "symlink");
    return path;
}

QString addNode(const QString& path, mode_t mode, dev_t device = 0)
{
    check(mknod(native(path).constData(), mode, device) == 0, "mknod");
    check(chmod(native(path).constData(), mode & 0777) == 0, "chmod");
    return path;
}

/// A device that swallows what is written, as the system's own, but made for the test: nothing here touches /dev.
QString addNullDevice(const QString& path, mode_t mode)
{
    return addNode(path, S_IFCHR | mode, makedev(1, 3));
}

QString mountFolder(const QString& path, const char* options)
{
    addFolder(path, 0777);
    check(mount("none", native(path).constData(), "tmpfs", 0, options) == 0, "mount");
    return path;
}

void makeReadOnly(const QString& path)
{
    check(mount("none", native(path).constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, "mode=0777") == 0, "remount");
}

/// Takes all that is left of the file system at `folder`.
void fill(const QString& folder)
{
    QFile file(folder + QStringLiteral("/filler"));
    check(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered), "filler");
    while (file.write(QByteArray(4096, 'x')) > 0) {
    }
}

std::vector<SaveFault> plainFaults()
{
    const auto at = [](const QString& folder, const char* name) {
        return folder + QLatin1Char('/') + QLatin1String(name);
    };
    return {
        {"nothing is wrong: new file", [=](const QString& f) { return at(f, "new.dat"); }, {}, true},
        {"nothing is wrong: existing file",
         [=](const QString& f) { return addFile(at(f, "old.dat"), 0666); },
         {"overwrite"},
         true},
        {"nothing is wrong: non-ASCII name",
         [=](const QString& f) { return addFile(f + QStringLiteral(u"/Me\u00dfwert \u6e2c\u5b9a.dat"), 0666); },
         {"overwrite"},
         true},
        {"nothing is wrong: neighbour with a name that is no UTF-8",
         [=](const QString& f) {
             const QByteArray name = native(f) + "/caf\xE9\xFF.dat";
             const int file = open(name.constData(), O_CREAT | O_WRONLY, 0666);
             check(file >= 0 && close(file) == 0, "odd name");
             return at(f, "new.dat");
         },
         {},
         true},
        {"read-only file",
         [=](const QString& f) { return addFile(at(f, "old.dat"), 0444); },
         {"overwrite", "unable"},
         false},
        {"writable file in a read-only folder",
         [=](const QString& f) {
             addFolder(at(f, "closed"), 0777);
             addFile(at(f, "closed/old.dat"), 0666);
             return addFolder(at(f, "closed"), 0555) + QStringLiteral("/old.dat");
         },
         {"overwrite"},
         true},
        {"new file in a read-only folder",
         [=](const QString& f) { return addFolder(at(f, "closed"), 0555) + QStringLiteral("/new.dat"); },
         {"unable"},
         false},
        {"missing folder", [=](const QString& f) { return at(f, "missing/new.dat"); }, {"unable"}, false},
        {"a file in place of the folder",
         [=](const QString& f) { return addFile(at(f, "file"), 0666) + QStringLiteral("/new.dat"); },
         {"unable"},
         false},
        {"a folder as target",
         [=](const QString& f) { return addFolder(at(f, "folder.dat"), 0777); },
         {"overwrite", "unable"},
         false},
        {"link to a read-only file",
         [=](const QString& f) { return addLink(at(f, "link.dat"), addFile(at(f, "old.dat"), 0444)); },
         {"overwrite", "unable"},
         false},
        // Behind these names nothing exists, so that their folder is what has to be writable. That the name itself
        // leads nowhere comes out when the caller writes.
        {"dangling link", [=](const QString& f) { return addLink(at(f, "link.dat"), at(f, "nowhere.dat")); }, {}, true},
        {"loop of links", [=](const QString& f) { return addLink(at(f, "loop.dat"), at(f, "loop.dat")); }, {}, true},
        {"name too long",
         [=](const QString& f) {
             return f + QLatin1Char('/') + QString(300, QLatin1Char('x')) + QStringLiteral(".dat");
         },
         {},
         true},
        {"folder deleted after the choice",
         [=](const QString& f) { return addFolder(at(f, "short-lived"), 0777) + QStringLiteral("/new.dat"); },
         {"unable"},
         false,
         [=](const QString& f) { QDir(f).rmdir(at(f, "short-lived")); }},
        {"file deleted after the choice",
         [=](const QString& f) { return addFile(at(f, "old.dat"), 0666); },
         {},
         true,
         [=](const QString& f) { QFile::remove(at(f, "old.dat")); }},
        {"pipe that nobody reads",
         [=](const QString& f) { return addNode(at(f, "pipe.dat"), S_IFIFO | 0666); },
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
         [=](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "size=64k,mode=0777");
             fill(mounted);
             return mounted + QStringLiteral("/new.dat"); // that there is room is not proved
         },
         {},
         true},
        {"full file system: existing file",
         [=](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "size=64k,mode=0777");
             QString file = addFile(mounted + QStringLiteral("/old.dat"), 0666);
             fill(mounted);
             return file;
         },
         {"overwrite"},
         true},
        {"file system without room for another file",
         [=](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "nr_inodes=2,mode=0777");
             addFile(mounted + QStringLiteral("/old.dat"), 0666);
             return mounted + QStringLiteral("/new.dat");
         },
         {"unable"},
         false},
        {"read-only file system: new file",
         [=](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "mode=0777");
             makeReadOnly(mounted);
             return mounted + QStringLiteral("/new.dat");
         },
         {"unable"},
         false},
        {"read-only file system: existing file",
         [=](const QString& f) {
             const QString mounted = mountFolder(f + QLatin1String(mountPoint), "mode=0777");
             QString file = addFile(mounted + QStringLiteral("/old.dat"), 0666);
             makeReadOnly(mounted);
             return file;
         },
         {"overwrite", "unable"},
         false},
    };
}

/// A view of the mounted file systems that only this thread has: what it mounts goes with it.
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

/// `folder` need not be there.
void removeSaveFault(const QString& folder)
{
    umount2(native(folder + QLatin1String(mountPoint)).constData(), MNT_DETACH);
    const std::filesystem::path path = native(folder).toStdString();
    if (!std::filesystem::exists(path))
        return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.symlink_status().type() == std::filesystem::file_type::directory)
            std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all);
    }
    std::filesystem::remove_all(path); // Qt cannot remove a file whose name is no UTF-8
}

QByteArray stateOf(const QFileInfo& info)
{
    QByteArray state = QByteArray::number(int(info.permissions()), 16) + ' '
                       + QByteArray::number(info.metadataChangeTime().toMSecsSinceEpoch()) + ' '
                       + QByteArray::number(info.lastModified().toMSecsSinceEpoch());
    QFile file(info.filePath());
    if (info.isFile() && !info.isSymLink() && file.open(QIODevice::ReadOnly))
        state += ' ' + file.readAll();
    return state;
}

} // namespace

QString whyFaultsAreMissing()
{
    QStringList reasons{whyNothingIsMounted(), whyThereAreNoDevices()};
    reasons.removeAll({});
    return reasons.join(QStringLiteral("; "));
}

const std::vector<SaveFault>& saveFaults()
{
    static const std::vector<SaveFault> faults = [] {
        std::vector<SaveFault> all = plainFaults();
        const auto add = [&all](std::vector<SaveFault> more) {
            std::move(more.begin(), more.end(), std::back_inserter(all));
        };
        if (whyThereAreNoDevices().isEmpty())
            add(deviceFaults());
        if (whyNothingIsMounted().isEmpty())
            add(mountedFaults());
        return all;
    }();
    return faults;
}

QMap<QString, QByteArray> folderState(const QString& folder, bool itself)
{
    QMap<QString, QByteArray> state;
    if (itself)
        state[folder] = stateOf(QFileInfo(folder));
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        if (itself || !entries.fileInfo().isDir())
            state[entries.filePath()] = stateOf(entries.fileInfo());
    }
    return state;
}

void addSaveFaultRows(const QStringList& except)
{
    QTest::addColumn<int>("fault");
    for (std::size_t i = 0; i < saveFaults().size(); ++i) {
        if (!except.contains(QLatin1String(saveFaults()[i].name)))
            QTest::newRow(saveFaults()[i].name) << int(i);
    }
}

SaveFaultTrial::SaveFaultTrial(const SaveFault& fault, const QString& folder)
    : m_fault(fault)
    , m_folder(addFolder(folder, 0777))
    , m_chosenName(fault.prepare(folder))
    // A place that takes the name shows, in its own time, that a temporary file has come and gone.
    , m_before(folderState(folder, !fault.accepted))
{
}

SaveFaultTrial::~SaveFaultTrial()
{
    removeSaveFault(m_folder);
}

std::unique_ptr<RecordingMessageHandler> SaveFaultTrial::makeHandler()
{
    auto handler = std::make_unique<RecordingMessageHandler>(m_calls);
    handler->whenChecked = [this](const std::string& name) {
        if (m_fault.meanwhile)
            m_fault.meanwhile(m_folder);
        return name;
    };
    return handler;
}

void SaveFaultTrial::addAnswers(DialogDriver& driver) const
{
    for (const std::string& question : m_fault.questions) {
        const QString text = QString::fromStdString(question);
        driver.onDialogWhen<QMessageBox>(
            text, [text](QMessageBox& box) { return box.text() == text; },
            [question](QMessageBox& box) {
                box.button(question == "overwrite" ? QMessageBox::Yes : QMessageBox::No)->click();
            });
    }
}

QString SaveFaultTrial::problem(bool launched) const
{
    RecordingMessageHandler::Calls expected{"check " + m_chosenName.toStdString()};
    expected.insert(expected.end(), m_fault.questions.begin(), m_fault.questions.end());
    QStringList problems;
    if (launched != m_fault.accepted)
        problems +=
            QStringLiteral("the flow returns %1").arg(launched ? QStringLiteral("true") : QStringLiteral("false"));
    if (m_calls != expected) {
        for (const std::string& call : m_calls)
            problems += QStringLiteral("the flow asks: ") + QString::fromStdString(call);
    }
    if (!m_fault.meanwhile && folderState(m_folder, !m_fault.accepted) != m_before)
        problems += QStringLiteral("the folder is not as it was");
    return problems.join(QLatin1Char('\n'));
}
