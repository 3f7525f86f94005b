#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTest>
#include <QUrl>

#include <functional>
#include <map>
#include <string>
#include <vector>

using zelmar::ApplicationSettings;

namespace {

const std::string defaultKey = "QExtendedFileDialog/Geometry";

/// A settings store that records all reads and writes in their order.
class RecordingStore : public ApplicationSettings::Store
{
public:
    QByteArray value(const std::string& key) const override
    {
        calls.push_back("read " + key);
        const auto found = values.find(key);
        return found == values.end() ? QByteArray() : found->second;
    }

    void setValue(const std::string& key, const QByteArray& value) override
    {
        calls.push_back("write " + key);
        values[key] = value;
    }

    mutable std::vector<std::string> calls;
    std::map<std::string, QByteArray> values;
};

void runAndCancel(QExtendedFileDialog& dialog, const std::function<void(QFileDialog&)>& whileOpen = {})
{
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [&whileOpen](QFileDialog& running) {
        if (whileOpen)
            whileOpen(running);
        cancel(running);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

} // namespace

class tst_QExtendedFileDialogGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void keysOfTheConstructors();
    void keyIsOnlyUsedWhenRun();
    void showKeepsTheGeometryAtOnce();
    void execKeepsTheGeometryOnClosing();
    void storedGeometryIsRestored();
    void storedRubbishIsIgnored();
    void defaultSize_data();
    void defaultSize();
    void storedGeometryWinsOverTheDefaultSize();
    void keysAreIndependent();
    void sidebarOnTheFirstRunOnly();
    void sidebarUntouchedWhenShownBefore();
    void sidebarKeepsDuplicatesOutOfSight();
    void storeThatThrowsIsTheCallersBusiness();

private:
    std::unique_ptr<QExtendedFileDialog> makeDialog() const;
    QList<QUrl> standardPlaces() const;

    RecordingStore* m_store = nullptr;
    std::unique_ptr<QWidget> m_window;
    DialogFolders m_folders;
};

void tst_QExtendedFileDialogGeometry::init()
{
    auto store = std::make_unique<RecordingStore>();
    m_store = store.get();
    ApplicationSettings::getInstance().setStore(std::move(store));
    m_window = std::make_unique<QWidget>();
    // Qt stores the sidebar of a dialog in this file for the next one.
    QFile::remove(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                  + QStringLiteral("/QtProject.conf"));
}

void tst_QExtendedFileDialogGeometry::cleanup()
{
    m_window.reset();
}

std::unique_ptr<QExtendedFileDialog> tst_QExtendedFileDialogGeometry::makeDialog() const
{
    return std::make_unique<QExtendedFileDialog>(*m_window, "Runs", m_folders.path().toStdString(), "", "",
                                                 QFileDialog::AcceptOpen);
}

QList<QUrl> tst_QExtendedFileDialogGeometry::standardPlaces() const
{
    QList<QUrl> urls;
    for (const auto place :
         {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
        const QStringList folders = QStandardPaths::standardLocations(place);
        QDir().mkpath(folders.value(0)); // The sidebar skips folders that do not exist.
        urls += QUrl::fromLocalFile(folders.value(0));
    }
    return urls;
}

void tst_QExtendedFileDialogGeometry::keysOfTheConstructors()
{
    QExtendedFileDialog plain(*m_window, QFileDialog::AcceptOpen);
    plain.show();
    QCOMPARE(m_store->values.size(), std::size_t(1));
    QVERIFY(!m_store->values[""].isEmpty());

    const auto full = makeDialog();
    full->show();
    QCOMPARE(m_store->values.size(), std::size_t(2));
    QVERIFY(!m_store->values[defaultKey].isEmpty());
}

void tst_QExtendedFileDialogGeometry::keyIsOnlyUsedWhenRun()
{
    const auto dialog = makeDialog();
    dialog->setGeometryPersistenceKey("save");
    QCOMPARE(m_store->calls.size(), std::size_t(0));
    dialog->show();
    QCOMPARE(m_store->calls, (std::vector<std::string>{"read save", "read save", "write save"}));
}

void tst_QExtendedFileDialogGeometry::showKeepsTheGeometryAtOnce()
{
    const auto dialog = makeDialog();
    dialog->setDefaultSize(QSize(640, 400));
    dialog->show();
    const QByteArray kept = m_store->values[defaultKey];
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    dialog->resize(800, 500);
    dialog->close();
    QCOMPARE(m_store->values[defaultKey], kept);
}

void tst_QExtendedFileDialogGeometry::execKeepsTheGeometryOnClosing()
{
    const auto dialog = makeDialog();
    runAndCancel(*dialog, [this](QFileDialog& running) {
        QVERIFY(m_store->values.empty());
        running.resize(733, 444);
        QTRY_COMPARE(running.size(), QSize(733, 444));
    });
    const auto next = makeDialog();
    QVERIFY(next->restoreGeometry(m_store->values[defaultKey]));
    QCOMPARE(next->size(), QSize(733, 444));
}

void tst_QExtendedFileDialogGeometry::storedGeometryIsRestored()
{
    QPoint position;
    runAndCancel(*makeDialog(), [&position](QFileDialog& running) {
        running.setGeometry(150, 120, 733, 444);
        QTRY_COMPARE(running.size(), QSize(733, 444));
        QTRY_VERIFY(running.geometry().topLeft() != QPoint());
        position = running.pos();
    });
    QSize size;
    QPoint secondPosition;
    runAndCancel(*makeDialog(), [&](QFileDialog& running) {
        size = running.size();
        QTRY_COMPARE(running.pos(), position);
        secondPosition = running.pos();
    });
    QCOMPARE(size, QSize(733, 444));
    QCOMPARE(secondPosition, position);
}

void tst_QExtendedFileDialogGeometry::storedRubbishIsIgnored()
{
    m_store->values[defaultKey] = "rubbish";
    const QList<QUrl> sidebar = makeDialog()->sidebarUrls();
    const auto dialog = makeDialog();
    dialog->setDefaultSize(QSize(640, 400));
    const QSize before = dialog->size();
    runAndCancel(*dialog, [before](QFileDialog& running) { QCOMPARE(running.size(), before); });
    QCOMPARE(dialog->sidebarUrls(), sidebar); // The dialog counts as shown before.
    QVERIFY(m_store->values[defaultKey] != QByteArray("rubbish"));
}

void tst_QExtendedFileDialogGeometry::defaultSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("used");

    QTest::newRow("both sides") << QSize(640, 400) << true;
    QTest::newRow("no width") << QSize(0, 500) << false;
    QTest::newRow("no height") << QSize(640, 0) << false;
    QTest::newRow("negative width") << QSize(-1, 400) << false;
    QTest::newRow("unset") << QSize() << false;
}

void tst_QExtendedFileDialogGeometry::defaultSize()
{
    QFETCH(QSize, size);
    QFETCH(bool, used);

    QSize natural;
    runAndCancel(*makeDialog(), [&natural](QFileDialog& running) { natural = running.size(); });
    QVERIFY(natural != size);
    m_store->values.clear();

    const auto dialog = makeDialog();
    dialog->setDefaultSize(size);
    QSize shown;
    runAndCancel(*dialog, [&shown](QFileDialog& running) { shown = running.size(); });
    QCOMPARE(shown, used ? size : natural);
}

void tst_QExtendedFileDialogGeometry::storedGeometryWinsOverTheDefaultSize()
{
    runAndCancel(*makeDialog(), [](QFileDialog& running) {
        running.resize(733, 444);
        QTRY_COMPARE(running.size(), QSize(733, 444));
    });
    const auto dialog = makeDialog();
    dialog->setDefaultSize(QSize(640, 400));
    runAndCancel(*dialog, [](QFileDialog& running) { QCOMPARE(running.size(), QSize(733, 444)); });
}

void tst_QExtendedFileDialogGeometry::keysAreIndependent()
{
    const QSize sizes[] = {QSize(733, 444), QSize(655, 511)};
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 2; ++i) {
            const auto dialog = makeDialog();
            dialog->setGeometryPersistenceKey("key" + std::to_string(i));
            runAndCancel(*dialog, [&](QFileDialog& running) {
                if (round == 0)
                    running.resize(sizes[i]);
                QTRY_COMPARE(running.size(), sizes[i]);
            });
        }
    }
    QCOMPARE(m_store->values.size(), std::size_t(2));
}

void tst_QExtendedFileDialogGeometry::sidebarOnTheFirstRunOnly()
{
    const QList<QUrl> places = standardPlaces();
    const auto first = makeDialog();
    const QList<QUrl> own{QUrl::fromLocalFile(m_folders.path())};
    first->setSidebarUrls(own);
    runAndCancel(*first, [&](QFileDialog& running) { QCOMPARE(running.sidebarUrls(), own + places); });

    first->setSidebarUrls(own);
    runAndCancel(*first, [&](QFileDialog& running) { QCOMPARE(running.sidebarUrls(), own); });

    // Under another key this is the first run.
    first->setGeometryPersistenceKey("another");
    runAndCancel(*first, [&](QFileDialog& running) { QCOMPARE(running.sidebarUrls(), own + places); });
}

void tst_QExtendedFileDialogGeometry::sidebarUntouchedWhenShownBefore()
{
    m_store->values[defaultKey] = "anything";
    const auto dialog = makeDialog();
    const QList<QUrl> own{QUrl::fromLocalFile(m_folders.path())};
    dialog->setSidebarUrls(own);
    dialog->show();
    QCOMPARE(dialog->sidebarUrls(), own);
}

void tst_QExtendedFileDialogGeometry::sidebarKeepsDuplicatesOutOfSight()
{
    const QList<QUrl> places = standardPlaces();
    const auto dialog = makeDialog();
    dialog->setSidebarUrls({places[2]});
    dialog->show();
    QCOMPARE(dialog->sidebarUrls().count(places[2]), 1); // The sidebar itself drops the duplicate.
}

void tst_QExtendedFileDialogGeometry::storeThatThrowsIsTheCallersBusiness()
{
    class ThrowingStore : public ApplicationSettings::MemoryStore
    {
    public:
        QByteArray value(const std::string&) const override { throw std::runtime_error("no store"); }
    };
    class RefusingStore : public ApplicationSettings::MemoryStore
    {
    public:
        void setValue(const std::string&, const QByteArray&) override { throw std::runtime_error("no room"); }
    };
    const auto run = makeDialog();
    ApplicationSettings::getInstance().setStore(std::make_unique<RefusingStore>());
    QVERIFY_EXCEPTION_THROWN(runAndCancel(*run), std::runtime_error);
    QVERIFY(!QGuiApplication::overrideCursor());

    ApplicationSettings::getInstance().setStore(std::make_unique<ThrowingStore>());
    const auto dialog = makeDialog();
    QVERIFY_EXCEPTION_THROWN(dialog->show(), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(dialog->exec(), std::runtime_error);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!dialog->isVisible());
}

UI_TEST_MAIN(tst_QExtendedFileDialogGeometry)
#include "tst_QExtendedFileDialogGeometry.moc"
