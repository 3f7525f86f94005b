#include "TableSaver.h"

#include "TableTestSupport.h"
#include "TestHome.h"

#include <QSignalSpy>
#include <QTest>

using namespace gallery;

class tst_TableSaver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savesStatesInOrder();
    void reportsFailure();
    void savesBeforeItIsDestroyed();

private:
    TestFolder m_folder;
};

void tst_TableSaver::savesStatesInOrder()
{
    TableDocument table = *m_folder.load("a.csv", "x\n0\n").document;
    TableSaver saver;
    QSignalSpy finished(&saver, &TableSaver::finished);
    QStringList names;
    for (int i = 1; i <= 20; ++i) {
        names += QString("%1.csv").arg(i);
        table.setText(0, 0, names.last());
        saver.save(table, m_folder.path(names.last()), tableFormats().first());
    }
    table.setText(0, 0, "edited later");
    QVERIFY(saver.isSaving());
    QVERIFY(finished.isEmpty());
    QTRY_COMPARE(finished.size(), 20);
    QVERIFY(!saver.isSaving());
    for (int i = 0; i < 20; ++i) {
        QCOMPARE(finished[i], (QVariantList{m_folder.path(names[i]), QString()}));
        QCOMPARE(m_folder.read(names[i]), "x\n" + names[i].toUtf8() + "\n");
    }
}

void tst_TableSaver::reportsFailure()
{
    TableSaver saver;
    QSignalSpy finished(&saver, &TableSaver::finished);
    saver.save(TableDocument(), m_folder.path("missing/d.csv"), tableFormats().first());
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(!finished[0][1].toString().isEmpty());
}

void tst_TableSaver::savesBeforeItIsDestroyed()
{
    const TableResult table = m_folder.load("a.csv", "x\n" + QByteArray("1234567890\n").repeated(100000));
    TableSaver().save(*table.document, m_folder.path("f.json"), tableFormats().last());
    QCOMPARE(readTable(m_folder.path("f.json")).document->rowCount(), 100000);
}

CORE_TEST_MAIN(tst_TableSaver)
#include "tst_TableSaver.moc"
