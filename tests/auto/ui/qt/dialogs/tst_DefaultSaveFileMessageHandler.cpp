#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"

#include "TestHome.h"

#include <QTest>

#include <type_traits>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

static_assert(std::is_abstract<SaveFileMessageHandlerInterface>::value, "each operation is the derived class's");
static_assert(std::has_virtual_destructor<SaveFileMessageHandlerInterface>::value, "flows own one by its base");
static_assert(std::is_copy_constructible<DefaultSaveFileMessageHandler>::value, "two flows can have one each");
static_assert(std::is_copy_assignable<DefaultSaveFileMessageHandler>::value, "copies replace each other");

class tst_DefaultSaveFileMessageHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheFile_data();
    void namesTheFile();
    void beforeAnyName();
    void emptyError();
    void laterNameReplacesEarlierOne();
    void handsBackWhatItRemembers();
    void copiesAreIndependent();
};

void tst_DefaultSaveFileMessageHandler::namesTheFile_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("plain") << QByteArray("/data/run.dat");
    QTest::newRow("blanks and quotes") << QByteArray("/my data/\"run\" 1.dat");
    QTest::newRow("backslashes") << QByteArray("C:\\data\\run.dat");
    QTest::newRow("non-ASCII") << QByteArray(u8"/\u6e2c\u5b9a/Me\u00dfwert.dat");
    QTest::newRow("no valid UTF-8") << QByteArray("/caf\xE9/\xFF.dat");
    QTest::newRow("looks like markup") << QByteArray("/<b>run</b>&amp;%1.dat");
}

void tst_DefaultSaveFileMessageHandler::namesTheFile()
{
    QFETCH(QByteArray, name);
    DefaultSaveFileMessageHandler handler;
    SaveFileMessageHandlerInterface& base = handler;
    QCOMPARE(base.filenameToCheck(name.toStdString()), name.toStdString());
    QCOMPARE(QByteArray::fromStdString(base.okToOverwriteMessage()),
             "File " + name + " already exists. Do you want to replace it?");
    QCOMPARE(QByteArray::fromStdString(base.unableToOverwriteMessage()),
             "Unable to save file " + name
                 + ", check access permissions for the file and the parent directory. Do you want to try again and "
                   "choose a different location?");
    QCOMPARE(QByteArray::fromStdString(base.systemAccessError("disk gone")),
             "Unable to access file " + name
                 + ": disk gone. Do you want to try again and choose a different location?");
}

void tst_DefaultSaveFileMessageHandler::beforeAnyName()
{
    const DefaultSaveFileMessageHandler handler;
    QCOMPARE(handler.okToOverwriteMessage(), std::string("File  already exists. Do you want to replace it?"));
    QCOMPARE(handler.unableToOverwriteMessage(),
             std::string("Unable to save file , check access permissions for the file and the parent directory. Do "
                         "you want to try again and choose a different location?"));
    QCOMPARE(handler.systemAccessError("x"),
             std::string("Unable to access file : x. Do you want to try again and choose a different location?"));
}

void tst_DefaultSaveFileMessageHandler::emptyError()
{
    DefaultSaveFileMessageHandler handler;
    handler.filenameToCheck("a");
    QCOMPARE(handler.systemAccessError(""),
             std::string("Unable to access file a: . Do you want to try again and choose a different location?"));
}

void tst_DefaultSaveFileMessageHandler::laterNameReplacesEarlierOne()
{
    DefaultSaveFileMessageHandler handler;
    handler.filenameToCheck("first");
    handler.filenameToCheck("second");
    QCOMPARE(handler.okToOverwriteMessage(), std::string("File second already exists. Do you want to replace it?"));
}

void tst_DefaultSaveFileMessageHandler::handsBackWhatItRemembers()
{
    DefaultSaveFileMessageHandler handler;
    std::string name = handler.filenameToCheck("a");
    name = handler.filenameToCheck(name);
    QCOMPARE(name, std::string("a"));
}

void tst_DefaultSaveFileMessageHandler::copiesAreIndependent()
{
    DefaultSaveFileMessageHandler handler;
    handler.filenameToCheck("a");
    DefaultSaveFileMessageHandler copy(handler);
    QCOMPARE(copy.okToOverwriteMessage(), handler.okToOverwriteMessage());
    copy.filenameToCheck("b");
    QCOMPARE(handler.okToOverwriteMessage(), std::string("File a already exists. Do you want to replace it?"));
    handler = copy;
    copy.filenameToCheck("c");
    QCOMPARE(handler.okToOverwriteMessage(), std::string("File b already exists. Do you want to replace it?"));
}

CORE_TEST_MAIN(tst_DefaultSaveFileMessageHandler)
#include "tst_DefaultSaveFileMessageHandler.moc"
