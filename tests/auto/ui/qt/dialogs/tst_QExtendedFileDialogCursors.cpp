#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"

#include "AccessRights.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "IgnoreMessages.h"
#include "OrdinaryUser.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileSystemModel>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

using zelmar::ApplicationSettings;

namespace {

/// A value that no cursor shape has.
const auto noCursor = static_cast<Qt::CursorShape>(-1);

Qt::CursorShape shownCursor()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : noCursor;
}

/// Returns the size of the override cursor stack, which it leaves unchanged.
int cursorDepth()
{
    QList<QCursor> taken;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        taken.prepend(*cursor);
        QGuiApplication::restoreOverrideCursor();
    }
    for (const QCursor& cursor : taken)
        QGuiApplication::setOverrideCursor(cursor);
    return taken.size();
}

QFileSystemModel& modelOf(const QFileDialog& dialog)
{
    return *dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
}

/// Enters `folder` and waits until the model has announced it.
void visit(QFileDialog& dialog, const QString& folder)
{
    QSignalSpy loaded(&modelOf(dialog), &QFileSystemModel::directoryLoaded);
    dialog.setDirectory(folder);
    QTRY_VERIFY(loaded.contains(QVariantList{folder}));
}

/// An event filter that remembers the cursor shape at the moment when a widget is shown.
class CursorOnShow : public QObject
{
public:
    explicit CursorOnShow(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            cursor = shownCursor();
        return false;
    }

    Qt::CursorShape cursor = noCursor;
};

} // namespace

class tst_QExtendedFileDialogCursors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void waitCursorWhileAFolderIsRead();
    void onlyOneWaitCursorWhateverTheNumberOfFolders();
    void anyAnnouncedFolderEndsTheWait();
    void missingFolderShowsNoWaitCursor();
    void fileIsNoFolder();
    void knownFolderReleasesTheWaitCursor();
    void knownFolderDoesNotReleaseForOneThatIsRead();
    void recreatedFolderIsReadAgain();
    void destroyedWhileReading();
    void arrowOverARunningDialog();
    void arrowAfterSetDirectoryBeforeExec();
    void waitCursorShowsOverTheArrow();
    void closedWhileReading();
    void destroyedWhileRunningAndReading();
    void randomWalks_data();
    void randomWalks();

private:
    std::unique_ptr<QExtendedFileDialog> makeDialog() const;

    DialogFolders m_folders;
    QString m_start, m_small, m_empty, m_large;
    std::unique_ptr<QWidget> m_window;
};

void tst_QExtendedFileDialogCursors::initTestCase()
{
    m_start = m_folders.addFolder(QStringLiteral("start"), 1);
    m_small = m_folders.addFolder(QStringLiteral("small"), 3);
    m_empty = m_folders.addFolder(QStringLiteral("empty"));
    m_large = m_folders.addFolder(QStringLiteral("large"), 300);
}

void tst_QExtendedFileDialogCursors::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_window = std::make_unique<QWidget>();
    QCOMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::cleanup()
{
    m_window.reset();
    QCOMPARE(cursorDepth(), 0);
}

std::unique_ptr<QExtendedFileDialog> tst_QExtendedFileDialogCursors::makeDialog() const
{
    return std::make_unique<QExtendedFileDialog>(*m_window, "Runs", m_start.toStdString(), "", "",
                                                 QFileDialog::AcceptOpen);
}

void tst_QExtendedFileDialogCursors::waitCursorWhileAFolderIsRead()
{
    const auto dialog = makeDialog();
    dialog->show();
    visit(*dialog, m_small);
    QTRY_COMPARE(cursorDepth(), 0);
    for (const QString& folder : {m_large, m_empty}) {
        dialog->setDirectory(folder);
        QCOMPARE(shownCursor(), Qt::WaitCursor);
        QCOMPARE(cursorDepth(), 1);
        QTRY_COMPARE(cursorDepth(), 0);
    }
}

void tst_QExtendedFileDialogCursors::onlyOneWaitCursorWhateverTheNumberOfFolders()
{
    const auto dialog = makeDialog();
    for (const QString& folder : {m_large, m_small, m_empty, m_start}) {
        dialog->setDirectory(folder);
        QCOMPARE(cursorDepth(), 1);
    }
    QTRY_COMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::anyAnnouncedFolderEndsTheWait()
{
    const auto dialog = makeDialog();
    dialog->setDirectory(m_large);
    QCOMPARE(shownCursor(), Qt::WaitCursor);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), "onDirectoryLoaded", Q_ARG(QString, QStringLiteral("/elsewhere"))));
    QCOMPARE(cursorDepth(), 0);
    // The cursor is popped only once, so that a cursor of the program stays.
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), "onDirectoryLoaded", Q_ARG(QString, m_large)));
    QCOMPARE(shownCursor(), Qt::CrossCursor);
    QGuiApplication::restoreOverrideCursor();
}

void tst_QExtendedFileDialogCursors::missingFolderShowsNoWaitCursor()
{
    const auto dialog = makeDialog();
    dialog->setDirectory(m_folders.path(QStringLiteral("missing")));
    QCOMPARE(cursorDepth(), 0);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), "onRootPathChanged",
                                      Q_ARG(QString, m_folders.path(QStringLiteral("missing")))));
    QCOMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::fileIsNoFolder()
{
    const auto dialog = makeDialog();
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), "onRootPathChanged",
                                      Q_ARG(QString, m_start + QStringLiteral("/file00000.dat"))));
    QCOMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::knownFolderReleasesTheWaitCursor()
{
    const auto dialog = makeDialog();
    dialog->show();
    visit(*dialog, m_small);
    visit(*dialog, m_empty);
    visit(*dialog, m_large);
    QTRY_COMPARE(cursorDepth(), 0);
    for (int round = 0; round < 5; ++round) {
        for (const QString& folder : {m_small, m_empty, m_large, m_small, m_large}) {
            dialog->setDirectory(folder);
            QTRY_COMPARE(cursorDepth(), 0);
        }
    }
}

/// The model does not announce a folder that it has read before. Handling that case must not end the wait cursor of
/// another folder.
void tst_QExtendedFileDialogCursors::knownFolderDoesNotReleaseForOneThatIsRead()
{
    for (int round = 0; round < 5; ++round) {
        const auto dialog = makeDialog();
        // Each round needs another folder, because a new dialog reads the folder in which the last one was closed.
        const QString unknown = m_folders.addFolder(QStringLiteral("unknown%1").arg(round), 300);
        dialog->show();
        visit(*dialog, m_small);
        visit(*dialog, m_empty);
        QTRY_COMPARE(cursorDepth(), 0);

        QSignalSpy loaded(&modelOf(*dialog), &QFileSystemModel::directoryLoaded);
        dialog->setDirectory(m_small);
        dialog->setDirectory(unknown);
        QCOMPARE(shownCursor(), Qt::WaitCursor);
        const QDeadlineTimer deadline(15000);
        while (shownCursor() == Qt::WaitCursor && !deadline.hasExpired())
            QCoreApplication::processEvents();
        QVERIFY(loaded.count() > 0);
        QTRY_VERIFY(loaded.contains(QVariantList{unknown}));
    }
}

void tst_QExtendedFileDialogCursors::recreatedFolderIsReadAgain()
{
    if (systemLimits::watchedFoldersStay)
        QSKIP(systemLimits::watchedFoldersStay);
    const QString folder = m_folders.addFolder(QStringLiteral("short-lived"), 2);
    const auto dialog = makeDialog();
    dialog->show();
    visit(*dialog, folder);
    visit(*dialog, m_small);
    QVERIFY(QDir(folder).removeRecursively());
    dialog->setDirectory(m_folders.path());
    QTRY_VERIFY(!modelOf(*dialog).index(folder).isValid());
    m_folders.addFolder(QStringLiteral("short-lived"), 2);
    dialog->setDirectory(folder);
    QTRY_COMPARE(modelOf(*dialog).rowCount(modelOf(*dialog).index(folder)), 2);
    QTRY_COMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::destroyedWhileReading()
{
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    {
        const auto dialog = makeDialog();
        dialog->setDirectory(m_large);
        QCOMPARE(shownCursor(), Qt::WaitCursor);
    }
    QCOMPARE(shownCursor(), Qt::CrossCursor);
    QCOMPARE(cursorDepth(), 1);
    QGuiApplication::restoreOverrideCursor();
}

void tst_QExtendedFileDialogCursors::arrowOverARunningDialog()
{
    QGuiApplication::setOverrideCursor(Qt::BusyCursor); // stands for a program that is busy
    for (const bool accepted : {true, false}) {
        const auto dialog = makeDialog();
        DialogDriver driver;
        driver.onDialog<QFileDialog>("look", [accepted](QFileDialog& running) {
            QTRY_COMPARE(shownCursor(), Qt::ArrowCursor);
            QCOMPARE(cursorDepth(), 2);
            if (accepted)
                acceptName(running, QStringLiteral("file00000.dat"));
            else
                cancel(running);
        });
        QCOMPARE(dialog->exec(), int(accepted ? QDialog::Accepted : QDialog::Rejected));
        QCOMPARE(shownCursor(), Qt::BusyCursor);
        QCOMPARE(cursorDepth(), 1);
    }
    QGuiApplication::restoreOverrideCursor();
}

void tst_QExtendedFileDialogCursors::arrowAfterSetDirectoryBeforeExec()
{
    const auto dialog = makeDialog();
    for (const QString& folder : {m_large, m_small, m_large, m_empty}) {
        dialog->setDirectory(folder);
        QCOMPARE(shownCursor(), Qt::WaitCursor);
        const CursorOnShow onShow(*dialog);
        DialogDriver driver;
        driver.onDialog<QFileDialog>("look", [&onShow](QFileDialog& running) {
            QCOMPARE(onShow.cursor, Qt::WaitCursor); // The wait cursor is above the arrow while the folder is read.
            QTRY_COMPARE(shownCursor(), Qt::ArrowCursor);
            QCOMPARE(cursorDepth(), 1);
            cancel(running);
        });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QCOMPARE(cursorDepth(), 0);
    }
}

void tst_QExtendedFileDialogCursors::waitCursorShowsOverTheArrow()
{
    const auto dialog = makeDialog();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("go to a folder", [this](QFileDialog& running) {
        QTRY_COMPARE(shownCursor(), Qt::ArrowCursor);
        running.setDirectory(m_large);
        QCOMPARE(shownCursor(), Qt::WaitCursor);
        QCOMPARE(cursorDepth(), 2);
        QTRY_COMPARE(shownCursor(), Qt::ArrowCursor);
        QCOMPARE(cursorDepth(), 1);
        cancel(running);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_QExtendedFileDialogCursors::closedWhileReading()
{
    const QString unknown = m_folders.addFolder(QStringLiteral("left at once"), 300);
    const auto dialog = makeDialog();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("leave at once", [&unknown](QFileDialog& running) {
        running.setDirectory(unknown);
        running.reject();
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(cursorDepth(), 0); // Neither the arrow nor the wait cursor stays after the run.
    QSignalSpy loaded(&modelOf(*dialog), &QFileSystemModel::directoryLoaded);
    QTRY_VERIFY(loaded.contains(QVariantList{unknown}));
    QCOMPARE(cursorDepth(), 0);
}

void tst_QExtendedFileDialogCursors::destroyedWhileRunningAndReading()
{
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    auto* dialog = makeDialog().release();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("delete", [this](QFileDialog& running) {
        running.setDirectory(m_large);
        m_window.reset();
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(shownCursor(), Qt::CrossCursor);
    QCOMPARE(cursorDepth(), 1);
    QGuiApplication::restoreOverrideCursor();
}

void tst_QExtendedFileDialogCursors::randomWalks_data()
{
    QTest::addColumn<QString>("end");

    QTest::newRow("accepted") << "accepted";
    QTest::newRow("cancelled") << "cancelled";
    QTest::newRow("destroyed") << "destroyed";
}

/// Runs as an ordinary user, because root can read every folder.
void tst_QExtendedFileDialogCursors::randomWalks()
{
    QFETCH(QString, end);

    QRandomGenerator random(20261121);
    const QString unreadable = m_folders.addFolder(QStringLiteral("unreadable"), 2);
    if (!systemLimits::noRefusedReading)
        setAccess(unreadable, Access::Nothing);
    const auto readableAgain = qScopeGuard([&unreadable] { setAccess(unreadable, Access::Everything); });
    // Some systems refuse to watch an unreadable folder, others refuse to delete a watched one.
    const IgnoreMessages unavoidable(
        QStringLiteral("^inotify_add_watch\\(.*/unreadable\\) failed|^QTemporaryDir: Unable to remove "));
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    QCOMPARE(QDir(unreadable).entryList(QDir::Files).isEmpty(), !systemLimits::noRefusedReading);

    for (int walk = 0; walk < 100; ++walk) {
        if (!m_window)
            m_window = std::make_unique<QWidget>();
        auto dialog = makeDialog();
        QStringList folders{m_start, m_small, m_empty, m_large, unreadable, m_folders.path(QStringLiteral("missing"))};
        QTemporaryDir deleted;
        folders += deleted.path();

        if (random.bounded(2))
            dialog->setDirectory(folders[random.bounded(folders.size())]);
        DialogDriver driver;
        driver.onDialog<QFileDialog>("walk", [&](QFileDialog& running) {
            for (int step = random.bounded(2, 8); step > 0; --step) {
                running.setDirectory(folders[random.bounded(folders.size())]);
                if (random.bounded(5) == 0)
                    deleted.remove();
                if (random.bounded(2))
                    QCoreApplication::processEvents();
                if (random.bounded(4) == 0)
                    QTRY_COMPARE(shownCursor(), Qt::ArrowCursor); // The dialog is idle.
                QVERIFY(cursorDepth() <= 2);
            }
            if (end == QLatin1String("accepted"))
                static_cast<QDialog&>(running).done(QDialog::Accepted);
            else if (end == QLatin1String("cancelled"))
                running.reject();
            else
                m_window.reset(); // The parent deletes the dialog.
        });
        auto* running = dialog.release();
        running->exec();
        QCOMPARE(cursorDepth(), 0);
        if (m_window)
            delete running;
        QCOMPARE(cursorDepth(), 0);
    }
}

UI_TEST_MAIN(tst_QExtendedFileDialogCursors)
#include "tst_QExtendedFileDialogCursors.moc"
