#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "ui/qt/dialogs/PortalUse.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "OrdinaryUser.h"
#include "RecordingMessageHandler.h"
#include "RecordingPortal.h"
#include "SaveFaults.h"
#include "TestHome.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using namespace zelmar::internal;

/// Tests the save flow over a recording portal, whose dialog asks about overwriting itself and whose user can grant
/// only the name that the dialog shows.
class tst_PortalSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void proposesTheFullName();
    void proposesTheFullNameInAnyFolder();
    void asksAgainForTheFullName();
    void extensionOfThePickedType();
    void existingFile();
    void otherNameToCheck();
    void builtInAfterAPortal();
    void cancelled();
    void notWritable();
    void grantedFile();
    void faults_data() { addSaveFaultRows(); }
    void faults();

private:
    QString path(const char* name) const { return m_folders->path(QLatin1String(name)); }
    std::string text(const char* name) const { return path(name).toStdString(); }
    void acceptInPortal(const QString& file, int filter = -1);
    QString proposedName(std::size_t request) const
    {
        return m_portal->requests().at(request).options.value(QStringLiteral("current_name")).toString();
    }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<RecordingPortal> m_portal;
    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    RecordingMessageHandler::Calls m_calls;
    RecordingMessageHandler* m_handler = nullptr; // owned by the flow
    std::unique_ptr<SaveFileWinDialog> m_flow;
};

void tst_PortalSaving::init()
{
    zelmar::ui::setPortalUse(zelmar::ui::PortalUse::Always);
    m_bus = std::make_unique<PrivateBus>();
    m_portal = std::make_unique<RecordingPortal>(*m_bus);
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"));
    m_window = std::make_unique<QWidget>();
    m_calls.clear();
    auto handler = std::make_unique<RecordingMessageHandler>(m_calls);
    m_handler = handler.get();
    m_flow = std::make_unique<SaveFileWinDialog>(m_window.get(), "Save", m_folders->path().toStdString(), "run",
                                                 std::vector<std::string>{"Data (*.dat)", "Tables (*.csv)"}, 0, "",
                                                 std::move(handler));
}

void tst_PortalSaving::cleanup()
{
    m_flow.reset();
    m_window.reset();
    m_portal.reset();
    m_bus.reset();
}

void tst_PortalSaving::acceptInPortal(const QString& file, int filter)
{
    m_portal->onRequest("accept " + file, [this, file, filter] {
        const auto filters = qdbus_cast<QList<PortalFilter>>(m_portal->requests().back().options.value("filters"));
        QVariantMap results;
        if (filter >= 0)
            results.insert(QStringLiteral("current_filter"), QVariant::fromValue(filters.at(filter)));
        m_portal->accept({file}, results);
    });
}

void tst_PortalSaving::proposesTheFullName()
{
    acceptInPortal(path("run.dat"));
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), text("run.dat"));
    QCOMPARE(m_flow->selectedWriter(), 0);
    QCOMPARE(proposedName(0), QStringLiteral("run.dat"));
    QCOMPARE(m_calls, RecordingMessageHandler::Calls{"check " + text("run.dat")});
}

/// The portal chooses the folder, for example where a sandbox hides that of the application.
void tst_PortalSaving::proposesTheFullNameInAnyFolder()
{
    SaveFileWinDialog flow(m_window.get(), "Save", path("missing").toStdString(), "run", "Data (*.dat)", "");
    acceptInPortal(path("run.dat"));
    QVERIFY(flow.launch());
    QVERIFY(!m_portal->requests().back().options.contains("current_folder"));
    QCOMPARE(proposedName(0), QStringLiteral("run.dat"));
}

/// The user removes the extension. The full name is granted only if the user sees it.
void tst_PortalSaving::asksAgainForTheFullName()
{
    acceptInPortal(path("other"));
    acceptInPortal(path("other.dat"));
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), text("other.dat"));
    QCOMPARE(m_portal->requests().size(), std::size_t(2));
    QCOMPARE(proposedName(1), QStringLiteral("other.dat"));
    QCOMPARE(m_calls, RecordingMessageHandler::Calls{"check " + text("other.dat")});
}

void tst_PortalSaving::extensionOfThePickedType()
{
    acceptInPortal(path("run.dat"), 1);
    acceptInPortal(path("run.csv"), 1);
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), text("run.csv"));
    QCOMPARE(m_flow->selectedWriter(), 1);
    QCOMPARE(proposedName(1), QStringLiteral("run.csv"));
}

/// The portal has asked about this very name.
void tst_PortalSaving::existingFile()
{
    acceptInPortal(path("old.dat"));
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), text("old.dat"));
    QCOMPARE(m_calls, RecordingMessageHandler::Calls{"check " + text("old.dat")});
}

/// The application writes a file of another name, about which the portal has not asked.
void tst_PortalSaving::otherNameToCheck()
{
    m_handler->whenChecked = [this](const std::string&) { return text("old.dat"); };
    acceptInPortal(path("run.dat"));
    DialogDriver driver;
    driver.onDialog<QMessageBox>("overwrite", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    QVERIFY(m_flow->launch());
    QCOMPARE(m_calls, (RecordingMessageHandler::Calls{"check " + text("run.dat"), "overwrite"}));
}

/// The flow itself asks after the built-in dialog, also about a name that a portal has asked about before.
void tst_PortalSaving::builtInAfterAPortal()
{
    acceptInPortal(path("old.dat"));
    QVERIFY(m_flow->launch());
    m_portal->leave();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("old.dat")); });
    driver.onDialog<QMessageBox>("overwrite", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    QVERIFY(m_flow->launch());
    QCOMPARE(m_calls.back(), std::string("overwrite"));
}

void tst_PortalSaving::cancelled()
{
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QVERIFY(!m_flow->launch());
    QVERIFY(m_calls.empty());
}

/// The portal is asked again when the user wants to choose another location.
void tst_PortalSaving::notWritable()
{
    acceptInPortal(path("missing/run.dat"));
    acceptInPortal(path("run.dat"));
    DialogDriver driver;
    driver.onDialog<QMessageBox>("choose again", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), text("run.dat"));
    QCOMPARE(m_calls, (RecordingMessageHandler::Calls{"check " + text("missing/run.dat"), "unable",
                                                      "check " + text("run.dat")}));
}

/// A sandboxed application gets a path below the mount of the document portal, whose folders are not the user's.
void tst_PortalSaving::grantedFile()
{
    const QString granted = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/doc/1a2b/run.dat");
    QVERIFY(QDir().mkpath(QFileInfo(granted).path()));
    acceptInPortal(granted);
    QVERIFY(m_flow->launch());
    QCOMPARE(QString::fromStdString(m_flow->selectedFilename()), granted);
    QVERIFY(QDir(QFileInfo(granted).path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));

    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_portal->requests().back().options.value("current_folder").toByteArray(),
             m_folders->path().toUtf8().append('\0'));
    QCOMPARE(proposedName(1), QStringLiteral("run.dat"));
}

/// With each fault of a save location the flow does as over the other dialogs, but leaves the question about
/// overwriting to the portal.
void tst_PortalSaving::faults()
{
    QFETCH(int, fault);
    SaveFault expected = saveFaults()[std::size_t(fault)];
    std::vector<std::string>& questions = expected.questions;
    questions.erase(std::remove(questions.begin(), questions.end(), "overwrite"), questions.end());
    SaveFaultTrial trial(expected, path("place"));
    SaveFileWinDialog flow(m_window.get(), "Save", trial.folder().toStdString(), "", "Data (*.dat)", "",
                           trial.makeHandler());
    // The bus knows this process only by the user who has connected.
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QVERIFY(!flow.launch());

    acceptInPortal(trial.chosenName());
    DialogDriver driver;
    trial.addAnswers(driver);
    bool launched = false;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        launched = flow.launch();
    }
    QCOMPARE(trial.problem(launched), QString());
}

UI_TEST_MAIN(tst_PortalSaving)
#include "tst_PortalSaving.moc"
