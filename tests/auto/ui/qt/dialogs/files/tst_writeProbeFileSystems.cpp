#include "ui/qt/dialogs/files/writeProbe_p.h"

#include "DialogFolders.h"
#include "OrdinaryUser.h"
#include "TestHome.h"

#include <QDir>
#include <QTest>

#include <cerrno>
#include <cstdarg>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using zelmar::internal::canBeWritten;

namespace {

bool refuseUnnamedFiles = false;
int unnamedFilesRefused = 0;
int unnamedFilesMade = 0;
/// The name of a file that is deleted when it is about to be opened. Empty for none.
QByteArray deletedOnOpening;

bool isUnnamed(int flags)
{
    return (flags & O_TMPFILE) == O_TMPFILE;
}

} // namespace

/// Replaces open64() of the C library for this program and for Qt within it, and simulates a file system without
/// unnamed files.
extern "C" int open64(const char* path, int flags, ...) // NOLINT(readability-inconsistent-declaration-parameter-name)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);

    if (isUnnamed(flags) && refuseUnnamedFiles) {
        ++unnamedFilesRefused;
        errno = EOPNOTSUPP;
        return -1;
    }
    if (!deletedOnOpening.isEmpty() && deletedOnOpening == path)
        unlink(path);
    using Open = int (*)(const char*, int, ...);
    static const auto realOpen = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "open64"));
    const int file = realOpen(path, flags, mode);
    if (isUnnamed(flags) && file >= 0)
        ++unnamedFilesMade;
    return file;
}

class tst_writeProbeFileSystems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newFile_data();
    void newFile();
    void deletedFileDoesNotComeBack();
    void pipeWithAReader();
    void pipeWithoutAReaderDoesNotWait();

private:
    std::unique_ptr<DialogFolders> m_folders;
};

void tst_writeProbeFileSystems::init()
{
    m_folders = std::make_unique<DialogFolders>();
    refuseUnnamedFiles = false;
    deletedOnOpening.clear();
    unnamedFilesRefused = 0;
    unnamedFilesMade = 0;
}

void tst_writeProbeFileSystems::newFile_data()
{
    QTest::addColumn<bool>("unnamedFilesKnown");

    QTest::newRow("file system with unnamed files") << true;
    QTest::newRow("file system without unnamed files") << false;
}

void tst_writeProbeFileSystems::newFile()
{
    QFETCH(bool, unnamedFilesKnown);
    refuseUnnamedFiles = !unnamedFilesKnown;

    QVERIFY(canBeWritten(m_folders->path(QStringLiteral("new.dat")).toStdString()));
    QCOMPARE(unnamedFilesMade, unnamedFilesKnown ? 1 : 0); // shows that this branch was tested
    QCOMPARE(unnamedFilesRefused, unnamedFilesKnown ? 0 : 1);
    QVERIFY(QDir(m_folders->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());

    m_folders->setReadOnly({}, true);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    QVERIFY(!canBeWritten(m_folders->path(QStringLiteral("new.dat")).toStdString()));
}

void tst_writeProbeFileSystems::deletedFileDoesNotComeBack()
{
    const QString file = m_folders->addFile(QStringLiteral("old.dat"));
    deletedOnOpening = QFile::encodeName(file);
    QVERIFY(!canBeWritten(file.toStdString()));
    QVERIFY(!QFile::exists(file));
}

void tst_writeProbeFileSystems::pipeWithAReader()
{
    const QByteArray pipe = QFile::encodeName(m_folders->path(QStringLiteral("pipe")));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    const int reader = ::open(pipe.constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    QVERIFY(canBeWritten(pipe.toStdString()));
    ::close(reader);
}

void tst_writeProbeFileSystems::pipeWithoutAReaderDoesNotWait()
{
    const QByteArray pipe = QFile::encodeName(m_folders->path(QStringLiteral("pipe")));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    QVERIFY(!canBeWritten(pipe.toStdString())); // A blocking open() would run into the deadline of the test program.
}

CORE_TEST_MAIN(tst_writeProbeFileSystems)
#include "tst_writeProbeFileSystems.moc"
