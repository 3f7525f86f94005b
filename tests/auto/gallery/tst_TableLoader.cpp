#include "TableLoader.h"

#include "TableTestSupport.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace gallery;

class tst_TableLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void loads();
    void reportsErrors();
    void reportsInItsOwnThread();
    void returnsBeforeTheFileIsRead();
    void reportsNothingOnceCancelled();
    void reportsOnlyTheSecondLoad();
    void loadsAgainFromFinished();
    void canBeCancelledFromProgress();
    void endsQuicklyWhenDestroyed();

private:
    static constexpr int Deadline = 60000;

    TestFolder m_folder;
    QString m_big;
    QString m_small;
};

void tst_TableLoader::initTestCase()
{
    qRegisterMetaType<TableResult>();
    QByteArray bytes = "a,b\n";
    for (int i = 0; i < 4000000; ++i)
        bytes += "x,12345,\n";
    m_big = m_folder.write("big.csv", bytes);
    m_small = m_folder.write("small.csv", "a\n1\n");
    QVERIFY(!m_big.isEmpty() && !m_small.isEmpty());
}

void tst_TableLoader::loads()
{
    TableLoader loader;
    QSignalSpy progress(&loader, &TableLoader::progressChanged);
    QSignalSpy finished(&loader, &TableLoader::finished);
    QVERIFY(!loader.isLoading());
    loader.load(m_big);
    QVERIFY(loader.isLoading());
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, Deadline);
    QVERIFY(!loader.isLoading());
    const auto result = finished[0][0].value<TableResult>();
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), 4000000);
    QVERIFY(progress.size() > 10);
    for (int i = 1; i < progress.size(); ++i)
        QVERIFY(progress[i][0].toInt() > progress[i - 1][0].toInt());
    QCOMPARE(progress.last()[0].toInt(), 100);
}

void tst_TableLoader::reportsErrors()
{
    TableLoader loader;
    QSignalSpy finished(&loader, &TableLoader::finished);
    loader.load(m_folder.path("missing.csv"));
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, Deadline);
    const auto result = finished[0][0].value<TableResult>();
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains("does not exist"), qPrintable(result.error));
}

void tst_TableLoader::reportsInItsOwnThread()
{
    TableLoader loader;
    QVector<QThread*> threads;
    connect(
        &loader, &TableLoader::progressChanged, &loader, [&] { threads += QThread::currentThread(); },
        Qt::DirectConnection);
    connect(
        &loader, &TableLoader::finished, &loader, [&] { threads += QThread::currentThread(); }, Qt::DirectConnection);
    loader.load(m_small);
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QVERIFY(threads.size() > 1);
    QCOMPARE(threads.count(thread()), threads.size());
}

void tst_TableLoader::returnsBeforeTheFileIsRead()
{
    TableLoader loader;
    QElapsedTimer timer;
    timer.start();
    loader.load(m_big);
    const qint64 started = timer.nsecsElapsed();
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QVERIFY2(started * 2 < timer.nsecsElapsed(), qPrintable(QString::number(started)));
}

void tst_TableLoader::reportsNothingOnceCancelled()
{
    TableLoader loader;
    QSignalSpy progress(&loader, &TableLoader::progressChanged);
    QSignalSpy finished(&loader, &TableLoader::finished);
    loader.load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!progress.isEmpty(), Deadline);
    loader.cancel();
    QVERIFY(!loader.isLoading());
    const int reports = progress.size();
    // Loads take their turns, so that what was left of the first would be reported before this.
    QSignalSpy other(&loader, &TableLoader::finished);
    loader.load(m_small);
    QTRY_COMPARE_WITH_TIMEOUT(other.size(), 1, Deadline);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].value<TableResult>().document->rowCount(), 1);
    QCOMPARE(progress[reports][0].toInt(), 0);
}

void tst_TableLoader::reportsOnlyTheSecondLoad()
{
    TableLoader loader;
    QSignalSpy finished(&loader, &TableLoader::finished);
    loader.load(m_small);
    loader.load(m_big);
    loader.load(m_folder.path("missing.csv"));
    loader.load(m_small);
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QCOMPARE(finished.size(), 1);
    const auto result = finished[0][0].value<TableResult>();
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), 1);
}

void tst_TableLoader::loadsAgainFromFinished()
{
    TableLoader loader;
    QVector<int> rows;
    connect(&loader, &TableLoader::finished, &loader, [&](const TableResult& result) {
        rows += result.document ? result.document->rowCount() : -1;
        if (rows.size() == 1)
            loader.load(m_small);
    });
    loader.load(m_folder.path("missing.csv"));
    QTRY_COMPARE_WITH_TIMEOUT(rows, (QVector<int>{-1, 1}), Deadline);
    QVERIFY(!loader.isLoading());
}

void tst_TableLoader::canBeCancelledFromProgress()
{
    TableLoader loader;
    QSignalSpy finished(&loader, &TableLoader::finished);
    int reports = 0;
    connect(&loader, &TableLoader::progressChanged, &loader, [&] {
        ++reports;
        loader.cancel();
    });
    loader.load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QCOMPARE(reports, 1);
    loader.load(m_folder.path("missing.csv"));
    QTRY_VERIFY_WITH_TIMEOUT(!finished.isEmpty(), Deadline);
    QCOMPARE(finished.size(), 1);
    QVERIFY(!finished[0][0].value<TableResult>().document);
}

void tst_TableLoader::endsQuicklyWhenDestroyed()
{
    QElapsedTimer timer;
    timer.start();
    QVERIFY(readTable(m_big).document);
    const qint64 wholeLoad = timer.nsecsElapsed();

    auto loader = std::make_unique<TableLoader>();
    QSignalSpy progress(loader.get(), &TableLoader::progressChanged);
    loader->load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!progress.isEmpty(), Deadline);
    timer.restart();
    loader.reset();
    QVERIFY2(timer.nsecsElapsed() * 2 < wholeLoad, qPrintable(QString::number(timer.nsecsElapsed())));
    QCoreApplication::processEvents();
}

QTEST_GUILESS_MAIN(tst_TableLoader)
#include "tst_TableLoader.moc"
