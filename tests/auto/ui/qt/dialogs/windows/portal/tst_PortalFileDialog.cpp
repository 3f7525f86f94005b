#include "ui/qt/dialogs/PortalUse.h"

#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/com/Apartment_p.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"
#include "ui/qt/dialogs/windows/portalSeam_p.h"

#include "../builtin/BuiltInDialog.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "RecordingPortal.h"
#include "TestHome.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <boost/make_shared.hpp>

#include <functional>
#include <memory>
#include <vector>

using namespace zelmar::internal;
using Conduct = RecordingPortal::Conduct;
using zelmar::ui::PortalUse;
using zelmar::ui::setPortalUse;

Q_DECLARE_METATYPE(std::function<void()>)

/// Tests the native dialog over a recording portal: what the portal is asked, what the dialog makes of the answer, and
/// when the built-in dialog is shown instead.
class tst_PortalFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opensAFile();
    void opensSeveralFiles();
    void opensAFolder();
    void opensAgain();
    void checkBoxes();
    void hiddenCheckBox();
    void acceptMenu_data();
    void acceptMenu();
    void acceptMenuWithOneItem();
    void parentWindow();
    void inputIsBlocked();

    void cancelled();
    void notALocalFile();
    void builtInForWhatNoPortalShows_data();
    void builtInForWhatNoPortalShows();
    void builtInForASinkThatNeedsEvents();
    void builtInWithoutAnAnswer_data();
    void builtInWithoutAnAnswer();
    void secondQuestionUnanswered();

    void closedByTheProgram_data();
    void closedByTheProgram();
    void applicationQuits();
    void throwingObserver();

    void savesUnderTheProposedName();
    void nameFollowsTheType();
    void nothingIsAppended();

private:
    QString path(const char* name) const { return m_folders->path(QLatin1String(name)); }
    void makeDialog(QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen, bool menu = false,
                    const std::string& helpTopic = {});
    void acceptInPortal(const QStringList& files, const QVariantMap& results = {});
    const RecordingPortal::Request& request() const { return m_portal->requests().back(); }
    QList<PortalChoice> choices() const
    {
        return qdbus_cast<QList<PortalChoice>>(request().options.value(QStringLiteral("choices")));
    }
    static QVariantMap chosen(const QList<PortalPair>& values)
    {
        return {{QStringLiteral("choices"), QVariant::fromValue(values)}};
    }
    static QVariantMap picked(const char* filter)
    {
        const QList<PortalFilter> filters{{QStringLiteral("Data (*.dat)"), {{0, QStringLiteral("*.[dD][aA][tT]")}}},
                                          {QStringLiteral("Tables (*.csv)"), {{0, QStringLiteral("*.[cC][sS][vV]")}}}};
        return {{QStringLiteral("current_filter"), QVariant::fromValue(filters[filter == QByteArray("csv") ? 1 : 0])}};
    }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<RecordingPortal> m_portal;
    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<ExtendedWinFileDialog> m_dialog;
};

void tst_PortalFileDialog::init()
{
    setPortalUse(PortalUse::Always);
    m_bus = std::make_unique<PrivateBus>();
    m_portal = std::make_unique<RecordingPortal>(*m_bus);
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.csv", "inner/d.dat"})
        m_folders->addFile(QLatin1String(name));
    m_window = std::make_unique<QWidget>();
    makeDialog();
}

void tst_PortalFileDialog::cleanup()
{
    m_dialog.reset();
    m_window.reset();
    m_portal.reset();
    m_bus.reset();
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(zelmar::ui::portalUse(), PortalUse::Always);
}

void tst_PortalFileDialog::makeDialog(QFileDialog::AcceptMode mode, bool menu, const std::string& helpTopic)
{
    m_dialog = std::make_unique<ExtendedWinFileDialog>(*m_window, "T\xC3\xAFtle", m_folders->path().toStdString(),
                                                       "Data (*.dat);;Tables (*.csv)", helpTopic, mode, menu);
}

void tst_PortalFileDialog::acceptInPortal(const QStringList& files, const QVariantMap& results)
{
    m_portal->onRequest("accept " + files.join(' '), [this, files, results] { m_portal->accept(files, results); });
}

void tst_PortalFileDialog::opensAFile()
{
    m_dialog->setFileMode(QFileDialog::ExistingFile);
    acceptInPortal({path("inner/d.dat")}, picked("csv"));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("inner/d.dat")});
    QCOMPARE(m_dialog->directory().path(), path("inner"));
    QCOMPARE(m_dialog->selectedNameFilter(), QStringLiteral("Tables (*.csv)"));

    QCOMPARE(request().method, QStringLiteral("OpenFile"));
    QCOMPARE(request().title, QString::fromUtf8("T\xC3\xAFtle"));
    QCOMPARE(request().options.keys(),
             (QStringList{"current_filter", "current_folder", "filters", "handle_token", "modal"}));
    QCOMPARE(request().options.value("current_folder").toByteArray(), m_folders->path().toUtf8().append('\0'));
    const auto filters = qdbus_cast<QList<PortalFilter>>(request().options.value("filters"));
    QCOMPARE(filters.size(), 2);
    QVERIFY(QVariant::fromValue(filters[1]).value<PortalFilter>() == picked("csv").first().value<PortalFilter>());
    QVERIFY(qdbus_cast<PortalFilter>(request().options.value("current_filter")) == filters[0]);
}

void tst_PortalFileDialog::opensSeveralFiles()
{
    m_dialog->setFileMode(QFileDialog::ExistingFiles);
    acceptInPortal({path("a.dat"), path("b.dat")});
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), (QStringList{path("a.dat"), path("b.dat")}));
    QCOMPARE(request().options.value("multiple"), QVariant(true));
}

void tst_PortalFileDialog::opensAFolder()
{
    m_dialog->setFileMode(QFileDialog::Directory);
    acceptInPortal({path("inner")});
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("inner")});
    QCOMPARE(m_dialog->directory().path(), path("inner"));
    QCOMPARE(request().options.keys(), (QStringList{"current_folder", "directory", "handle_token", "modal"}));
}

/// The next run starts with the folder and the type of the one before.
void tst_PortalFileDialog::opensAgain()
{
    acceptInPortal({path("inner/d.dat")}, picked("csv"));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QCOMPARE(m_dialog->selectedFiles(), QStringList());
    QCOMPARE(request().options.value("current_folder").toByteArray(), path("inner").toUtf8().append('\0'));
    QVERIFY(qdbus_cast<PortalFilter>(request().options.value("current_filter"))
            == picked("csv").first().value<PortalFilter>());
}

void tst_PortalFileDialog::checkBoxes()
{
    const auto preview = boost::make_shared<zelmar::Property<bool>>(false);
    const auto backup = boost::make_shared<zelmar::Property<bool>>(true);
    m_dialog->addCustomCheckBox("&Preview && more", preview);
    m_dialog->addCustomCheckBox("Backup", backup);
    acceptInPortal({path("a.dat")}, chosen({{"0", "true"}, {"1", "true"}}));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QVERIFY(preview->value());
    QVERIFY(backup->value());
    QVERIFY(
        (choices()
         == QList<PortalChoice>{{QStringLiteral("0"), QStringLiteral("Preview & more"), {}, QStringLiteral("false")},
                                {QStringLiteral("1"), QStringLiteral("Backup"), {}, QStringLiteral("true")}}));

    acceptInPortal({path("a.dat")}, chosen({{"0", "true"}, {"1", "false"}}));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QVERIFY(preview->value());
    QVERIFY(!backup->value());
    QCOMPARE(choices()[0].initial, QStringLiteral("true"));
}

void tst_PortalFileDialog::hiddenCheckBox()
{
    const auto preview = boost::make_shared<zelmar::Property<bool>>(false);
    m_dialog->addCustomCheckBox("Preview", preview)->hide();
    acceptInPortal({path("a.dat")}, chosen({{"0", "true"}}));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QVERIFY(!request().options.contains("choices"));
    QVERIFY(!preview->value());
}

void tst_PortalFileDialog::acceptMenu_data()
{
    QTest::addColumn<QVariantMap>("results");
    QTest::addColumn<int>("expected");
    QTest::newRow("first item") << chosen({{"0", "1"}}) << 10;
    QTest::newRow("other item") << chosen({{"0", "2"}}) << 20;
    QTest::newRow("unknown item") << chosen({{"0", "7"}}) << 10;
    QTest::newRow("no item") << QVariantMap() << 10;
}

void tst_PortalFileDialog::acceptMenu()
{
    QFETCH(QVariantMap, results);
    QFETCH(int, expected);
    makeDialog(QFileDialog::AcceptOpen, true);
    m_dialog->addAcceptButtonOption("&Open", 10);
    m_dialog->addAcceptButtonOption("Open as &copy", 20);
    acceptInPortal({path("a.dat")}, results);
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedAcceptMenuOption(), expected);
    QVERIFY((choices()
             == QList<PortalChoice>{{QStringLiteral("0"),
                                     QStringLiteral("More ways to open"),
                                     {{QStringLiteral("1"), QStringLiteral("Open")},
                                      {QStringLiteral("2"), QStringLiteral("Open as copy")}},
                                     QStringLiteral("1")}}));
}

void tst_PortalFileDialog::acceptMenuWithOneItem()
{
    makeDialog(QFileDialog::AcceptOpen, true);
    m_dialog->addAcceptButtonOption("&Import_1", 10);
    m_dialog->addAcceptButtonOption("Export", 20)->hide();
    acceptInPortal({path("a.dat")});
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedAcceptMenuOption(), 10);
    QVERIFY(!request().options.contains("choices"));
    QCOMPARE(request().options.value("accept_label").toString(), QStringLiteral("_Import__1"));
}

void tst_PortalFileDialog::parentWindow()
{
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    const bool onX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    QCOMPARE(request().parentWindow, onX11 ? QStringLiteral("x11:%1").arg(m_window->winId(), 0, 16) : QString());
}

/// The application's windows take no input while the portal's dialog is open.
void tst_PortalFileDialog::inputIsBlocked()
{
    m_portal->onRequest("look, cancel", [this] {
        QVERIFY(QApplication::activeModalWidget());
        QCOMPARE(m_dialog->exec(), QDialog::Rejected); // The dialog is open already.
        m_portal->respond(1);
    });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_PortalFileDialog::cancelled()
{
    const auto preview = boost::make_shared<zelmar::Property<bool>>(false);
    m_dialog->addCustomCheckBox("Preview", preview);
    m_portal->onRequest("cancel", [this] { m_portal->respond(1, chosen({{"0", "true"}})); });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QCOMPARE(m_dialog->selectedFiles(), QStringList());
    QVERIFY(!preview->value());
}

void tst_PortalFileDialog::notALocalFile()
{
    QTest::ignoreMessage(QtWarningMsg, "The desktop portal has answered with a location that is not a local file.");
    m_portal->onRequest("accept", [this] {
        m_portal->respond(0, {{QStringLiteral("uris"), QStringList{QStringLiteral("mtp://phone/a.dat")}}});
    });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QCOMPARE(m_dialog->selectedFiles(), QStringList());
}

void tst_PortalFileDialog::builtInForWhatNoPortalShows_data()
{
    QTest::addColumn<std::function<void()>>("prepare");
    const auto add = [](const char* name, const std::function<void()>& prepare) { QTest::newRow(name) << prepare; };
    add("portals are switched off", [] { setPortalUse(PortalUse::Never); });
    add("no desktop and no sandbox calls for one", [] { setPortalUse(PortalUse::Automatic); });
    add("push button", [this] { m_dialog->addCustomButton("Columns", [] {}); });
    add("help", [this] { makeDialog(QFileDialog::AcceptOpen, false, "topic"); });
    add("disabled check box", [this] {
        m_dialog->addCustomCheckBox("Preview", boost::make_shared<zelmar::Property<bool>>(true))->setEnabled(false);
    });
    add("disabled menu item", [this] {
        makeDialog(QFileDialog::AcceptOpen, true);
        m_dialog->addAcceptButtonOption("Open", 1);
        m_dialog->addAcceptButtonOption("Export", 2)->setEnabled(false);
    });
    add("folder to save in", [this] {
        makeDialog(QFileDialog::AcceptSave);
        m_dialog->setFileMode(QFileDialog::Directory);
    });
}

void tst_PortalFileDialog::builtInForWhatNoPortalShows()
{
    QFETCH(std::function<void()>, prepare);
    prepare();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { shown.reject(); });
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QVERIFY(m_portal->requests().empty());
    setPortalUse(PortalUse::Always);
}

/// A sink of another program's may depend on events while the dialog is open.
void tst_PortalFileDialog::builtInForASinkThatNeedsEvents()
{
    const Apartment apartment;
    const BuiltInDialog dialog;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { shown.reject(); });
    QCOMPARE(dialog.show(), HRESULT_FROM_WIN32(ERROR_CANCELLED));
    QVERIFY(m_portal->requests().empty());

    const auto seam = queryFor<PortalSeam>(IID_PortalSeam, dialog.get());
    QVERIFY(seam);
    seam->acceptLateEvents(dialog.cookie());
    dialog.sink().events.clear();
    acceptInPortal({path("a.dat")});
    QCOMPARE(dialog.show(), S_OK);
    QCOMPARE(dialog.sink().events, (QStringList{"folder", "ok"}));
    QCOMPARE(dialog.result(), path("a.dat"));
}

void tst_PortalFileDialog::builtInWithoutAnAnswer_data()
{
    QTest::addColumn<std::function<void()>>("prepare");
    const auto add = [](const char* name, const std::function<void()>& prepare) { QTest::newRow(name) << prepare; };
    add("no bus", [this] {
        m_portal.reset();
        m_bus.reset();
    });
    add("no portal", [this] { m_portal->leave(); });
    add("error", [this] {
        m_portal->conduct = Conduct::RepliesWithError;
        m_portal->onRequest("nothing", [] {});
    });
    add("no reply", [this] {
        m_portal->conduct = Conduct::DoesNotReply;
        m_portal->onRequest("nothing", [] {});
    });
    add("no back end", [this] { m_portal->onRequest("end", [this] { m_portal->respond(2); }); });
}

void tst_PortalFileDialog::builtInWithoutAnAnswer()
{
    QFETCH(std::function<void()>, prepare);
    m_dialog->setFileMode(QFileDialog::ExistingFile);
    prepare();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("b.dat")); });
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("b.dat")});
}

/// The portal leaves after it was asked once. The built-in dialog goes on where the portal stopped.
void tst_PortalFileDialog::secondQuestionUnanswered()
{
    makeDialog(QFileDialog::AcceptSave);
    m_dialog->selectFile(QStringLiteral("run.dat"));
    m_portal->onRequest("accept, leave", [this] {
        m_portal->accept({path("inner/run.dat")}, picked("csv"));
        m_portal->leave();
    });
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [this](QFileDialog& shown) {
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("run.csv"));
        QCOMPARE(shown.directory().path(), path("inner"));
        pressReturn(shown);
    });
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("inner/run.csv")});
}

void tst_PortalFileDialog::closedByTheProgram_data()
{
    QTest::addColumn<std::function<void()>>("close");
    const auto add = [](const char* name, const std::function<void()>& close) { QTest::newRow(name) << close; };
    add("the parent is destroyed", [this] { m_window.reset(); });
    add("the parent is hidden", [this] { m_window->hide(); });
    add("the dialog is deleted", [this] { m_dialog.reset(); });
}

void tst_PortalFileDialog::closedByTheProgram()
{
    QFETCH(std::function<void()>, close);
    m_window->show();
    m_portal->onRequest("close", close);
    QCOMPARE(m_dialog->exec(), QDialog::Rejected);
    QTRY_VERIFY(m_portal->closed().contains(request().path));
}

void tst_PortalFileDialog::applicationQuits()
{
    // Qt 6 closes all windows first, of which the last one would let the application quit again, in the next test.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_portal->onRequest("quit", [] { QCoreApplication::quit(); });
    QDialog::DialogCode result = QDialog::Accepted;
    QTimer::singleShot(0, this, [this, &result] { result = m_dialog->exec(); });
    QApplication::exec();
    QCOMPARE(result, QDialog::Rejected);
    QTRY_VERIFY(m_portal->closed().contains(request().path));
}

/// An exception of an observer leaves exec() and not the event loop.
void tst_PortalFileDialog::throwingObserver()
{
    const auto preview = boost::make_shared<zelmar::Property<bool>>(false);
    preview->signalValueChanged().connect([](bool) { throw 7; });
    m_dialog->addCustomCheckBox("Preview", preview);
    acceptInPortal({path("a.dat")}, chosen({{"0", "true"}}));
    QVERIFY_EXCEPTION_THROWN(m_dialog->exec(), int);
    QCOMPARE(m_dialog->selectedFiles(), QStringList());
}

void tst_PortalFileDialog::savesUnderTheProposedName()
{
    makeDialog(QFileDialog::AcceptSave);
    m_dialog->selectFile(QStringLiteral("run"));
    acceptInPortal({path("run")});
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("run")});
    QCOMPARE(request().method, QStringLiteral("SaveFile"));
    QCOMPARE(request().options.keys(),
             (QStringList{"current_filter", "current_folder", "current_name", "filters", "handle_token", "modal"}));
    QCOMPARE(request().options.value("current_name"), QVariant(QStringLiteral("run")));
}

/// As in the other kinds of dialog, the name takes the extension of the type that the user picks. The user has to see
/// it.
void tst_PortalFileDialog::nameFollowsTheType()
{
    makeDialog(QFileDialog::AcceptSave);
    m_dialog->selectFile(QStringLiteral("run.dat"));
    acceptInPortal({path("inner/run.dat")}, picked("csv"));
    acceptInPortal({path("inner/run.csv")}, picked("csv"));
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("inner/run.csv")});
    QCOMPARE(m_portal->requests().size(), std::size_t(2));
    QCOMPARE(request().options.value("current_name"), QVariant(QStringLiteral("run.csv")));
    QCOMPARE(request().options.value("current_folder").toByteArray(), path("inner").toUtf8().append('\0'));
}

void tst_PortalFileDialog::nothingIsAppended()
{
    makeDialog(QFileDialog::AcceptSave);
    acceptInPortal({path("new")});
    QCOMPARE(m_dialog->exec(), QDialog::Accepted);
    QCOMPARE(m_dialog->selectedFiles(), QStringList{path("new")});
}

UI_TEST_MAIN(tst_PortalFileDialog)
#include "tst_PortalFileDialog.moc"
