#include "ui/qt/dialogs/files/grantedFile_p.h"
#include "ui/qt/dialogs/files/writeProbe_p.h"

#include "AccessRights.h"
#include "DialogFolders.h"
#include "OrdinaryUser.h"
#include "SaveFaults.h"
#include "TestHome.h"

#include <QDir>
#include <QTest>

#ifdef Q_OS_LINUX
#include <sys/inotify.h>
#include <unistd.h>
#endif

using zelmar::internal::canBeWritten;
using zelmar::internal::isGrantedFile;

class tst_writeProbe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newFile();
    void existingFile();
    void contentsAndTimesStay();
    void relativeName();
    void tellsGrantedFiles();
    void grantedFile();

private:
    std::unique_ptr<DialogFolders> m_folders;
};

void tst_writeProbe::init()
{
    m_folders = std::make_unique<DialogFolders>();
}

void tst_writeProbe::newFile()
{
    QVERIFY(canBeWritten(m_folders->path(QStringLiteral("new.dat")).toStdString()));
    QVERIFY(QDir(m_folders->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());

    QVERIFY(!canBeWritten(m_folders->path(QStringLiteral("missing/new.dat")).toStdString()));
    m_folders->setReadOnly({}, true);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    QVERIFY(!canBeWritten(m_folders->path(QStringLiteral("new.dat")).toStdString()));
}

void tst_writeProbe::existingFile()
{
    const QString open = m_folders->addFile(QStringLiteral("open.dat"));
    const QString closed = m_folders->addFile(QStringLiteral("closed.dat"));
    setAccess(open, Access::Everything);
    setAccess(closed, Access::NoWriting);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    QVERIFY(canBeWritten(open.toStdString()));
    QVERIFY(!canBeWritten(closed.toStdString()));
}

void tst_writeProbe::contentsAndTimesStay()
{
    const QString file = m_folders->addFile(QStringLiteral("old.dat"), "contents");
    const auto before = folderState(m_folders->path(), true);
    QVERIFY(canBeWritten(file.toStdString()));
    QCOMPARE(folderState(m_folders->path(), true), before);
}

void tst_writeProbe::relativeName()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folders->path()));
    QVERIFY(canBeWritten("new.dat"));
    QVERIFY(!canBeWritten("missing/new.dat"));
    QVERIFY(QDir::setCurrent(before));
}

void tst_writeProbe::tellsGrantedFiles()
{
#ifdef Q_OS_LINUX
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QVERIFY(!runtime.isEmpty());
    QVERIFY(isGrantedFile(runtime + "/doc/1a2b/new.dat"));
    QVERIFY(isGrantedFile(runtime + "/other/../doc/1a2b/new.dat"));
    QVERIFY(!isGrantedFile(runtime + "/doc"));
    QVERIFY(!isGrantedFile(runtime + "/documents/new.dat"));
    QVERIFY(!isGrantedFile("/home/doc/1a2b/new.dat"));

    // The mount lies beside the runtime folder of a Snap.
    const QString user = QStringLiteral("/run/user/%1/").arg(getuid());
    QVERIFY(isGrantedFile(user + "doc/1a2b/new.dat"));
    QVERIFY(!isGrantedFile(user + "new.dat"));
    QVERIFY(isGrantedFile("/run/flatpak/doc/1a2b/new.dat"));

    qputenv("XDG_RUNTIME_DIR", "");
    QVERIFY(!isGrantedFile("/doc/1a2b/new.dat"));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
#endif
    QVERIFY(!isGrantedFile(m_folders->path(QStringLiteral("new.dat"))));
}

/// Beside a file that a document portal has granted, no other name may be created, not even for a moment.
void tst_writeProbe::grantedFile()
{
#ifdef Q_OS_LINUX
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/doc/1a2b");
    QVERIFY(QDir().mkpath(folder));
    const int watch = inotify_init1(IN_NONBLOCK);
    QVERIFY(inotify_add_watch(watch, QFile::encodeName(folder).constData(), IN_CREATE | IN_DELETE) >= 0);
    QVERIFY(canBeWritten((folder + QStringLiteral("/new.dat")).toStdString()));
    QVERIFY(!canBeWritten((folder + QStringLiteral("/missing/new.dat")).toStdString()));

    alignas(inotify_event) char buffer[4096];
    const ssize_t size = read(watch, buffer, sizeof buffer);
    QVERIFY(close(watch) == 0);
    QStringList changes;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        changes += QString::fromUtf8(event->name) + (event->mask & IN_CREATE ? "+" : "-");
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    QCOMPARE(changes, (QStringList{"new.dat+", "new.dat-"}));
#else
    QSKIP("Only Linux has document portals.");
#endif
}

CORE_TEST_MAIN(tst_writeProbe)
#include "tst_writeProbe.moc"
