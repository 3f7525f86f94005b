#include "TableTestSupport.h"

#include "SafeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/mount.h>
#endif

using namespace gallery;

class tst_SafeSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsOldFileWithoutCommit();
    void keepsOneVersionWhenKilled();
    void keepsOldFileBelowTheSizeLimit_data();
    void keepsOldFileBelowTheSizeLimit();
    void keepsOldFileOnFullDisk_data();
    void keepsOldFileOnFullDisk();
    void keepsPermissionsAndLinks();
    void refusesPlaces_data();
    void refusesPlaces();
    void refusesReadOnlyFolder();
};

void tst_SafeSaving::keepsOldFileWithoutCommit()
{
    const TestFolder folder;
    const QString path = folder.write("t.csv", "the old file");
    {
        SafeFile file(path);
        QCOMPARE(file.write("the new file"), qint64(12));
    }
    QCOMPARE(folder.read("t.csv"), QByteArray("the old file"));
    QCOMPARE(QDir(folder.path(".")).entryList(QDir::Files), QStringList("t.csv"));
}

/// Child processes are killed at random moments while they save, or soon afterwards.
void tst_SafeSaving::keepsOneVersionWhenKilled()
{
#ifndef Q_OS_UNIX
    QSKIP(systemLimits::noFork);
#else
    const TestFolder folder;
    const QString path = folder.path("t.csv");
    const QByteArray versions[] = {"old,x\n" + QByteArray("a,b\n").repeated(3000),
                                   "new\n" + QByteArray("c\n").repeated(7000)};
    const TableDocument documents[] = {*folder.load("t.csv", versions[0]).document,
                                       *folder.load("t.csv", versions[1]).document};
    const auto save = [&](int version) { return writeTable(documents[version], path, tableFormats().first()); };
    QCOMPARE(save(0), QString());
    const quint32 seed = QRandomGenerator::system()->generate();
    QRandomGenerator random(seed);
    double longestDelay = 1000; // microseconds
    int current = 0;
    int changes = 0;
    for (int round = 0; round < 200; ++round) {
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            save(1 - current);
            for (;;)
                pause();
        }
        usleep(useconds_t(random.bounded(longestDelay)));
        QCOMPARE(kill(child, SIGKILL), 0);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        const QByteArray bytes = folder.read("t.csv");
        QVERIFY2(bytes == versions[0] || bytes == versions[1],
                 qPrintable(QString("seed %1, round %2: %3 bytes").arg(seed).arg(round).arg(bytes.size())));
        // Lets about half of the children complete their save, however fast the machine is.
        const bool isChanged = bytes != versions[current];
        longestDelay = qMin(longestDelay * (isChanged ? 0.9 : 1.1), 500000.0);
        changes += isChanged ? 1 : 0;
        current = isChanged ? 1 - current : current;
    }
    QVERIFY2(changes > 0 && changes < 200, qPrintable(QString("seed %1, %2 changes").arg(seed).arg(changes)));
    for (int version : {0, 1}) {
        QCOMPARE(save(version), QString());
        QCOMPARE(folder.read("t.csv"), versions[version]);
    }
#endif
}

void tst_SafeSaving::keepsOldFileBelowTheSizeLimit_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("missing");
    const QByteArray longCell = "a\n" + QByteArray(200000, 'x') + "\n";
    const QByteArray shortLines = QByteArray("a\n").repeated(50000);
    QTest::newRow("room for half a long cell") << longCell << 100000;
    QTest::newRow("room for all but the end of a long cell") << longCell << 10;
    QTest::newRow("room for half the lines") << shortLines << 50000;
    QTest::newRow("room for all but the last byte") << shortLines << 1;
}

void tst_SafeSaving::keepsOldFileBelowTheSizeLimit()
{
#ifndef Q_OS_UNIX
    QSKIP(systemLimits::noSizeLimit);
#else
    QFETCH(QByteArray, bytes);
    QFETCH(int, missing);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    for (const TableFormat& format : tableFormats()) {
        const QString path = folder.path("saved");
        QCOMPARE(writeTable(*result.document, path, format), QString());
        const qint64 size = QFileInfo(path).size();
        folder.write("saved", "the old file");

        rlimit limit = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
        const rlimit small = {rlim_t(size - missing), limit.rlim_max};
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        const QString error = writeTable(*result.document, path, format);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        std::signal(SIGXFSZ, oldHandler);

        QVERIFY2(error.contains("cannot be written: "), qPrintable(error));
        QCOMPARE(folder.read("saved"), QByteArray("the old file"));
        QCOMPARE(QDir(folder.path(".")).entryList(QDir::Files), (QStringList{"saved", "t.csv"}));
    }
#endif
}

void tst_SafeSaving::keepsOldFileOnFullDisk_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("more than the disk") << 300000;
    QTest::newRow("a few bytes more than the room") << 124 * 1024 + 10;
}

void tst_SafeSaving::keepsOldFileOnFullDisk()
{
#ifndef Q_OS_LINUX
    QSKIP("Only Linux can mount a small disk in memory.");
#else
    QFETCH(int, size);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", "a\n" + QByteArray(size, 'x') + "\n");
    const QByteArray disk = QFile::encodeName(folder.path("disk"));
    QVERIFY(QDir().mkdir(folder.path("disk")));
    if (mount("none", disk.constData(), "tmpfs", 0, "size=128k") != 0)
        QSKIP(qPrintable("No disk can be mounted: " + qt_error_string()));
    const auto unmount = [](const QByteArray* mounted) { umount2(mounted->constData(), MNT_DETACH); };
    const std::unique_ptr<const QByteArray, decltype(unmount)> guard(&disk, unmount);
    folder.write("disk/saved", "the old file");
    const QString error = writeTable(*result.document, folder.path("disk/saved"), tableFormats().first());
    QVERIFY2(error.contains("cannot be written: there is not enough room"), qPrintable(error));
    QCOMPARE(folder.read("disk/saved"), QByteArray("the old file"));
    QCOMPARE(QDir(folder.path("disk")).entryList(QDir::Files), QStringList("saved"));
#endif
}

void tst_SafeSaving::keepsPermissionsAndLinks()
{
    if (systemLimits::noSpecialFiles)
        QSKIP(systemLimits::noSpecialFiles);
    const TestFolder folder;
    QVERIFY(QDir().mkdir(folder.path("inner")));
    const QString target = folder.write("inner/target", "the old file");
    for (const auto permissions :
         {QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup, QFile::ReadOwner | QFile::WriteOwner}) {
        QVERIFY(QFile::setPermissions(target, permissions));
        const auto before = QFile::permissions(target);
        QFile::link("inner/target", folder.path("link"));
        QFile::link("link", folder.path("link to a link"));
        const TableResult result = folder.load("t.csv", "a\n1\n");
        QCOMPARE(writeTable(*result.document, folder.path("link to a link"), tableFormats().first()), QString());
        QCOMPARE(folder.read("inner/target"), QByteArray("a\n1\n"));
        QCOMPARE(QFile::permissions(target), before);
        for (const char* link : {"link", "link to a link"})
            QVERIFY(QFileInfo(folder.path(link)).isSymLink());
    }
}

void tst_SafeSaving::refusesPlaces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << QString(".") << "not a regular file";
    QTest::newRow("missing folder") << QString("missing/t.csv") << "cannot be written: ";
#ifdef Q_OS_UNIX
    // Represents devices, too, which a test that root runs must not endanger.
    QTest::newRow("pipe") << QString("pipe") << "not a regular file";
#endif
}

void tst_SafeSaving::refusesPlaces()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TestFolder folder;
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe")).constData(), 0600), 0);
#endif
    const TableResult result = folder.load("t.csv", "a\n1\n");
    const QString error = writeTable(*result.document, QDir(folder.path(".")).filePath(path), tableFormats().first());
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void tst_SafeSaving::refusesReadOnlyFolder()
{
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", "a\n1\n");
    result.document->setText(0, 0, "2");
    setAccess(folder.path("."), Access::NoWriting);
    QString error;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        error = writeTable(*result.document, folder.path("t.csv"), tableFormats().first());
    }
    setAccess(folder.path("."), Access::Everything);
    QVERIFY2(error.contains("cannot be written: "), qPrintable(error));
    QCOMPARE(folder.read("t.csv"), QByteArray("a\n1\n"));
}

QTEST_GUILESS_MAIN(tst_SafeSaving)
#include "tst_SafeSaving.moc"
