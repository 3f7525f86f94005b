#include "TableWorker.h"

#include "TableTestSupport.h"
#include "TestHome.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <functional>

using namespace gallery;

class tst_TableWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void loads();
    void reportsOnlyTheLastLoad();
    void reportsNothingOnceCancelled();
    void loadsAgainWhenLoaded();
    void reportsNothingOnceDestroyed();
    void savesStatesInOrder();
    void savesBeforeItIsDestroyed();

private:
    static constexpr int Deadline = 60000;

    TestFolder m_folder;
    QString m_big;
    QString m_small;
    std::unique_ptr<TableWorker> m_worker;
    QVector<int> m_percents;
    QStringList m_loaded; ///< the number of rows, or the error, of each load
};

void tst_TableWorker::initTestCase()
{
    m_big = m_folder.write("big.csv", "a,b\n" + QByteArray("x,12345,\n").repeated(2000000));
    m_small = m_folder.write("small.csv", "a\n1\n");
}

void tst_TableWorker::init()
{
    m_percents.clear();
    m_loaded.clear();
    m_worker = std::make_unique<TableWorker>();
    const auto onProgress = [this](int percent) {
        QCOMPARE(QThread::currentThread(), thread());
        m_percents += percent;
    };
    connect(m_worker.get(), &TableWorker::progressChanged, this, onProgress, Qt::DirectConnection);
    const auto onLoaded = [this](const TableResult& result) {
        QVERIFY(QThread::currentThread() == thread() && !m_worker->isLoading());
        m_loaded += result.document ? QString::number(result.document->rowCount()) : result.error;
    };
    connect(m_worker.get(), &TableWorker::loaded, this, onLoaded, Qt::DirectConnection);
}

void tst_TableWorker::loads()
{
    m_worker->load(m_big);
    QVERIFY(m_worker->isLoading());
    QTRY_COMPARE_WITH_TIMEOUT(m_loaded, QStringList{"2000000"}, Deadline);
    QVERIFY(m_percents.size() > 10);
    QVERIFY(std::is_sorted(m_percents.begin(), m_percents.end(), std::less_equal<>()));
    QCOMPARE(m_percents.last(), 100);
}

void tst_TableWorker::reportsOnlyTheLastLoad()
{
    for (const QString& path : {m_small, m_big, m_folder.path("missing.csv"), m_small})
        m_worker->load(path);
    QTRY_VERIFY_WITH_TIMEOUT(!m_worker->isLoading(), Deadline);
    QCOMPARE(m_loaded, QStringList{"1"});
}

void tst_TableWorker::reportsNothingOnceCancelled()
{
    connect(m_worker.get(), &TableWorker::progressChanged, m_worker.get(), &TableWorker::cancelLoad);
    m_worker->load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!m_worker->isLoading(), Deadline);
    QCOMPARE(m_percents, (QVector<int>{0}));
    // Loads take turns, so that anything left of the first one would be reported before this one.
    m_worker->disconnect(m_worker.get());
    m_worker->load(m_small);
    QTRY_COMPARE_WITH_TIMEOUT(m_loaded, QStringList{"1"}, Deadline);
}

void tst_TableWorker::loadsAgainWhenLoaded()
{
    connect(m_worker.get(), &TableWorker::loaded, this, [this] {
        if (m_loaded.size() == 1)
            m_worker->load(m_small);
    });
    m_worker->load(m_folder.path("."));
    QTRY_COMPARE_WITH_TIMEOUT(m_loaded, (QStringList{"This is not a regular file.", "1"}), Deadline);
}

void tst_TableWorker::reportsNothingOnceDestroyed()
{
    m_worker->load(m_big);
    QTRY_VERIFY_WITH_TIMEOUT(!m_percents.isEmpty(), Deadline);
    const QVector<int> reported = m_percents;
    m_worker.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_percents, reported);
    QCOMPARE(m_loaded, QStringList());
}

void tst_TableWorker::savesStatesInOrder()
{
    TableDocument table = *m_folder.load("a.csv", "x\n0\n").document;
    const QSignalSpy saved(m_worker.get(), &TableWorker::saved);
    for (int i = 0; i < 20; ++i) {
        const QString name = QString::number(i);
        table.setText(0, 0, name);
        m_worker->save(table, m_folder.path(name), csvFormat());
    }
    table.setText(0, 0, "edited later");
    m_worker->save(table, m_folder.path("missing/d.csv"), csvFormat());
    QVERIFY(m_worker->isSaving());
    QVERIFY(saved.isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!m_worker->isSaving(), Deadline);
    for (int i = 0; i < 20; ++i) {
        const QString name = QString::number(i);
        QCOMPARE(saved[i], (QVariantList{m_folder.path(name), QString()}));
        QCOMPARE(m_folder.read(name), "x\n" + name.toUtf8() + "\n");
    }
    QVERIFY(!saved[20][1].toString().isEmpty());
}

void tst_TableWorker::savesBeforeItIsDestroyed()
{
    const TableResult table = m_folder.load("a.csv", "x\n" + QByteArray("1234567890\n").repeated(100000));
    m_worker->save(*table.document, m_folder.path("f.json"), jsonFormat());
    m_worker.reset();
    QCOMPARE(readTable(m_folder.path("f.json")).document->rowCount(), 100000);
}

CORE_TEST_MAIN(tst_TableWorker)
#include "tst_TableWorker.moc"
