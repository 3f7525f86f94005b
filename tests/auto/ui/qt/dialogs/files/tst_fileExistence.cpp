#include "ui/qt/dialogs/files/fileExistence_p.h"

#include "ui/qt/dialogs/rules/utf8Path_p.h"

#include "DialogFolders.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QFile>
#include <QTest>

using zelmar::internal::countsAsExisting;
using zelmar::internal::fileTypeOf;
using zelmar::internal::utf8Path;

namespace fs = boost::filesystem;

Q_DECLARE_METATYPE(fs::file_type)

namespace {

fs::file_type typeOf(const QString& path)
{
    return fileTypeOf(utf8Path(path.toStdString()));
}

} // namespace

class tst_fileExistence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatCountsAsExisting_data();
    void whatCountsAsExisting();
    void typesOnDisk();
    void typesBehindLinks();
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
    QCOMPARE(typeOf(file), fs::regular_file);
    QCOMPARE(typeOf(folders.path()), fs::directory_file);
    QCOMPARE(typeOf(folders.path(QStringLiteral("none"))), fs::file_not_found);
    QCOMPARE(typeOf(folders.path(QStringLiteral("none/none"))), fs::file_not_found);
    QCOMPARE(typeOf(file + QStringLiteral("/below a file")), fs::file_not_found);
    QCOMPARE(fileTypeOf(std::string()), fs::file_not_found);
}

void tst_fileExistence::typesBehindLinks()
{
    if (systemLimits::noSpecialFiles)
        QSKIP(systemLimits::noSpecialFiles);
    const DialogFolders folders;
    const auto link = [&folders](const QString& target, const char* name) {
        const QString path = folders.path(QLatin1String(name));
        return QFile::link(target, path) ? typeOf(path) : fs::status_error;
    };
    QCOMPARE(link(folders.addFile(QStringLiteral("file")), "link"), fs::regular_file);
    QCOMPARE(link(folders.path(QStringLiteral("nowhere")), "dangling"), fs::file_not_found);
    QVERIFY(QFile::link(folders.path(QStringLiteral("loop")), folders.path(QStringLiteral("loop"))));
    QCOMPARE(typeOf(folders.path(QStringLiteral("loop"))), fs::status_error);
}

void tst_fileExistence::troubleIsAType()
{
    const DialogFolders folders;
    // Windows reports an impossible name as a file that does not exist.
    const fs::file_type expected = systemLimits::noOddNames ? fs::file_not_found : fs::status_error;
    QCOMPARE(typeOf(folders.path(QString(300, QLatin1Char('x')))), expected);
}

CORE_TEST_MAIN(tst_fileExistence)
#include "tst_fileExistence.moc"
