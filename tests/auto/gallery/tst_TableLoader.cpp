#include "TableLoader.h"

#include "TableTestSupport.h"

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
    void reportsOnlyTheLastLoad();
    void reportsNothingOnceCancelled();
    void loadsAgainFromFinished();
    void reportsNothingOnceDestroyed();

private:
    static constexpr int Deadline = 60000;

    TestFolder m_folder;
    QString m_big;
    QString m_small;
};

void tst_TableLoader::initTestCase()
{
    qRegisterMetaType<TableResult>();
    m_big = m_folder.write("big.csv", "a,b\n" + QByteArray("x,12345,\n").repeated(2000000));
    m_small = m_folder.write("small.csv", "a\n1\n");
}

void tst_TableLoader::loads()
{
    TableLoader loader;
    QSignalSpy progress(&loader, &TableLoader::progressChanged);
    QSignalSpy finished(&loader, &TableLoader::finished);
    const auto checkThread = [this] { QCOMPARE(QThread::currentThread(), thread()); };
    connect(&loader, &TableLoader::progressChanged, &loader, checkThread, Qt::DirectConnection);
    connect(&loader, &TableLoader::finished, &loader, checkThread, Qt::DirectConnection);
    QVERIFY(!loader.isLoading());
    loader.load(m_big);
    QVERIFY(loader.isLoading());
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, Deadline);
    QVERIFY(!loader.isLoading());
    const auto result = finished[0][0].value<TableResult>();
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), 2000000);
    QVERIFY(progress.size() > 10);
    for (int i = 1; i < progress.size(); ++i)
        QVERIFY(progress[i][0].toInt() > progress[i - 1][0].toInt());
    QCOMPARE(progress.last()[0].toInt(), 100);
}

void tst_TableLoader::reportsOnlyTheLastLoad()
{
    TableLoader loader;
    QSignalSpy finished(&loader, &TableLoader::finished);
    for (const QString& path : {m_small, m_big, m_folder.path("missing.csv"), m_small})
        loader.load(path);
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].value<TableResult>().document->rowCount(), 1);
}

void tst_TableLoader::reportsNothingOnceCancelled()
{
    TableLoader loader;
    QSignalSpy finished(&loader, &TableLoader::finished);
    QVector<int> percents;
    connect(&loader, &TableLoader::progressChanged, &loader, [&](int percent) {
        percents += percent;
        loader.cancel();
    });
    loader.load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!loader.isLoading(), Deadline);
    QCOMPARE(percents, (QVector<int>{0}));
    // Loads take turns, so that anything left of the first one would be reported before this one.
    loader.disconnect(&loader);
    loader.load(m_small);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, Deadline);
    QCOMPARE(finished[0][0].value<TableResult>().document->rowCount(), 1);
}

void tst_TableLoader::loadsAgainFromFinished()
{
    TableLoader loader;
    QStringList results;
    connect(&loader, &TableLoader::finished, &loader, [&](const TableResult& result) {
        results += result.document ? QString::number(result.document->rowCount()) : result.error;
        if (results.size() == 1)
            loader.load(m_small);
    });
    loader.load(m_folder.path("missing.csv"));
    QTRY_COMPARE_WITH_TIMEOUT(results, (QStringList{"The file does not exist.", "1"}), Deadline);
    QVERIFY(!loader.isLoading());
}

void tst_TableLoader::reportsNothingOnceDestroyed()
{
    auto loader = std::make_unique<TableLoader>();
    QSignalSpy progress(loader.get(), &TableLoader::progressChanged);
    loader->load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!progress.isEmpty(), Deadline);
    const int reports = progress.size();
    loader.reset();
    QCoreApplication::processEvents();
    QCOMPARE(progress.size(), reports);
}

QTEST_GUILESS_MAIN(tst_TableLoader)
#include "tst_TableLoader.moc"
