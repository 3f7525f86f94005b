#include "ui/qt/dialogs/save/writeProbe_p.h"

#include "AccessRights.h"
#include "DialogFolders.h"
#include "OrdinaryUser.h"
#include "SaveFaults.h"
#include "TestHome.h"

#include <QDir>
#include <QTest>

using zelmar::internal::canBeWritten;

class tst_writeProbe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newFile();
    void existingFile();
    void contentsAndTimesStay();
    void relativeName();

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

CORE_TEST_MAIN(tst_writeProbe)
#include "tst_writeProbe.moc"
