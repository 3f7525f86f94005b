#include "TableSaver.h"

#include "TableTestSupport.h"
#include "TestHome.h"

#include <QSignalSpy>
#include <QTest>

using namespace gallery;

/// Saving goes on in another thread; that what is written is right is tested with the writers.
class tst_TableSaver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savesInTheBackground();
    void savesWhatWasThereAtTheTime();
    void failureIsTold();
    void inOrder();
    void destroyedWhileSaving();

private:
    TestFolder m_folder;
};

void tst_TableSaver::savesInTheBackground()
{
    const TableResult table = m_folder.load(QStringLiteral("a.csv"), "x,y\n1,2\n");
    TableSaver saver;
    QSignalSpy finished(&saver, &TableSaver::finished);
    const QString path = m_folder.path(QStringLiteral("b.tsv"));
    saver.save(*table.document, path, tableFormatForPath(path));
    QVERIFY(saver.isSaving());
    QCOMPARE(finished.count(), 0);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.first(), (QVariantList{path, QString()}));
    QVERIFY(!saver.isSaving());
    QCOMPARE(textsOf(*readTable(path).document), textsOf(*table.document));
}

void tst_TableSaver::savesWhatWasThereAtTheTime()
{
    const TableResult table = m_folder.load(QStringLiteral("a.csv"), "x,y\n1,2\n");
    TableSaver saver;
    const QString path = m_folder.path(QStringLiteral("c.csv"));
    saver.save(*table.document, path, tableFormatForPath(path));
    table.document->setText(0, 0, QStringLiteral("edited later"));
    QTRY_VERIFY(!saver.isSaving());
    QCOMPARE(m_folder.read(QStringLiteral("c.csv")), QByteArray("x,y\n1,2\n"));
}

void tst_TableSaver::failureIsTold()
{
    const TableResult table = m_folder.load(QStringLiteral("a.csv"), "x,y\n1,2\n");
    TableSaver saver;
    QSignalSpy finished(&saver, &TableSaver::finished);
    saver.save(*table.document, m_folder.path(QStringLiteral("missing/d.csv")), tableFormats().first());
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(!finished.first().at(1).toString().isEmpty());
}

void tst_TableSaver::inOrder()
{
    const TableResult table = m_folder.load(QStringLiteral("a.csv"), "x\n0\n");
    TableSaver saver;
    QSignalSpy finished(&saver, &TableSaver::finished);
    const QString path = m_folder.path(QStringLiteral("e.csv"));
    for (int i = 1; i <= 20; ++i) {
        table.document->setText(0, 0, QString::number(i));
        saver.save(*table.document, path, tableFormats().first());
    }
    QTRY_COMPARE(finished.count(), 20);
    QCOMPARE(m_folder.read(QStringLiteral("e.csv")), QByteArray("x\n20\n"));
}

void tst_TableSaver::destroyedWhileSaving()
{
    const TableResult table =
        m_folder.load(QStringLiteral("a.csv"), "x\n" + QByteArray("1234567890\n").repeated(200000));
    const QString path = m_folder.path(QStringLiteral("f.json"));
    {
        TableSaver saver;
        saver.save(*table.document, path, tableFormatForPath(path));
    }
    QCOMPARE(readTable(path).document->rowCount(), 200000);
}

CORE_TEST_MAIN(tst_TableSaver)
#include "tst_TableSaver.moc"
