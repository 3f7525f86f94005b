#include "ui/qt/dialogs/rules/fileExistence.h"

#include "DialogFolders.h"
#include "TestHome.h"

#include <QFile>
#include <QTest>

namespace fs = boost::filesystem;

Q_DECLARE_METATYPE(fs::file_type)

class tst_fileExistence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatCountsAsExisting_data();
    void whatCountsAsExisting();
    void typesOnDisk();
    void troubleIsAType();
};

void tst_fileExistence::whatCountsAsExisting_data()
{
    QTest::addColumn<fs::file_type>("type");
    QTest::addColumn<bool>("expected");

    QTest::newRow("cannot tell") << fs::status_error << false;
    QTest::newRow("not there") << fs::file_not_found << false;
    QTest::newRow("file") << fs::regular_file << true;
    QTest::newRow("folder") << fs::directory_file << true;
    QTest::newRow("symbolic link") << fs::symlink_file << true;
    QTest::newRow("block device") << fs::block_file << true;
    QTest::newRow("character device") << fs::character_file << true;
    QTest::newRow("pipe") << fs::fifo_file << true;
    QTest::newRow("socket") << fs::socket_file << true;
    QTest::newRow("there, of a kind of its own") << fs::type_unknown << true;
}

void tst_fileExistence::whatCountsAsExisting()
{
    QFETCH(fs::file_type, type);
    QTEST(countsAsExisting(type), "expected");
}

void tst_fileExistence::typesOnDisk()
{
    const DialogFolders folders;
    const QString file = folders.addFile(QStringLiteral(u"Me\u00dfwert.dat"));
    QVERIFY(QFile::link(file, folders.path(QStringLiteral("link"))));
    QVERIFY(QFile::link(folders.path(QStringLiteral("nowhere")), folders.path(QStringLiteral("dangling"))));

    QCOMPARE(fileTypeOf(file.toStdString()), fs::regular_file);
    QCOMPARE(fileTypeOf(folders.path().toStdString()), fs::directory_file);
    QCOMPARE(fileTypeOf(folders.path(QStringLiteral("none")).toStdString()), fs::file_not_found);
    QCOMPARE(fileTypeOf(folders.path(QStringLiteral("none/none")).toStdString()), fs::file_not_found);
    QCOMPARE(fileTypeOf((file + QStringLiteral("/below a file")).toStdString()), fs::file_not_found);
    QCOMPARE(fileTypeOf(folders.path(QStringLiteral("link")).toStdString()), fs::regular_file);
    QCOMPARE(fileTypeOf(folders.path(QStringLiteral("dangling")).toStdString()), fs::file_not_found);
    QCOMPARE(fileTypeOf(std::string()), fs::file_not_found);
}

void tst_fileExistence::troubleIsAType()
{
    const DialogFolders folders;
    QVERIFY(QFile::link(folders.path(QStringLiteral("loop")), folders.path(QStringLiteral("loop"))));
    QCOMPARE(fileTypeOf(folders.path(QStringLiteral("loop")).toStdString()), fs::status_error);
    QCOMPARE(fileTypeOf(folders.path(QString(300, QLatin1Char('x'))).toStdString()), fs::status_error);
}

CORE_TEST_MAIN(tst_fileExistence)
#include "tst_fileExistence.moc"
