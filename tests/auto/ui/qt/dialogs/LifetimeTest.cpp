#include "LifetimeTest.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "FileDialogActions.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>
#include <QtTest>

using zelmar::ApplicationSettings;
using zelmar::HelpLauncher;

QStringList shownDialogs()
{
    QStringList shown;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && (qobject_cast<const QDialog*>(widget) || qobject_cast<const QMenu*>(widget)))
            shown += QString::fromLatin1(widget->metaObject()->className());
    }
    return shown;
}

const char* nameOf(RunnerKind runner)
{
    switch (runner) {
    case RunnerKind::Facade:
        return "facade";
    case RunnerKind::Dialog:
        return "dialog";
    case RunnerKind::FlowFacade:
        return "facade of a flow";
    case RunnerKind::Flow:
        return "flow";
    }
    return "";
}

void addLifetimeColumns()
{
    QTest::addColumn<DialogBackend>("kind");
    QTest::addColumn<RunnerKind>("runner");
    QTest::addColumn<const Victims*>("victims");
}

void LifetimeTest::init()
{
    // Windows destroys the windows that a destroyed one owns before Qt can hide them, and Qt logs that.
    m_unavoidable = std::make_unique<IgnoreMessages>(QStringLiteral("^External WM_DESTROY received for "));
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("old.dat", "contents");
    m_folders->addFolder("sub", 1);
    m_parent = std::make_unique<QWidget>();
    m_driver = std::make_unique<DialogDriver>();
    m_handlerListener = [](const QString&) {};
    m_examiningFails = false;
    m_strikes = 0;
    m_shownAfterwards.clear();
}

void LifetimeTest::cleanup()
{
    HelpLauncher::getInstance().setHandler({});
    m_driver.reset();
    m_runner.reset();
    m_parent.reset();
    m_switch.reset();
    m_folders.reset();
    m_unavoidable.reset();
}

void LifetimeTest::makeRunner()
{
    m_switch = std::make_unique<DialogBackendSwitch>(m_kind);
    const QString folder = m_folders->path();
    auto handler =
        std::make_unique<TellingHandler>([this](const QString& call) { m_handlerListener(call); }, m_examiningFails);
    const bool drawn = m_kind == DialogBackend::QtDrawn;
    if (m_runnerKind == RunnerKind::Facade)
        m_runner = std::make_unique<FacadeRunner>(*m_parent, folder);
    else if (m_runnerKind == RunnerKind::FlowFacade)
        m_runner = std::make_unique<FlowFacadeRunner>(m_parent.get(), folder, std::move(handler));
    else if (m_runnerKind == RunnerKind::Dialog && drawn)
        m_runner = std::make_unique<DrawnRunner>(*m_parent, folder);
    else if (m_runnerKind == RunnerKind::Dialog)
        m_runner = std::make_unique<NativeRunner>(*m_parent, folder);
    else if (drawn)
        m_runner = std::make_unique<FlowRunner<SaveFileQtDialog>>(m_parent.get(), folder, std::move(handler));
    else
        m_runner = std::make_unique<FlowRunner<SaveFileWinDialog>>(m_parent.get(), folder, std::move(handler));
}

void LifetimeTest::strike()
{
    ++m_strikes;
    if (m_victims->dialog)
        m_runner->deleteDialog();
    if (m_victims->runnerFirst)
        m_runner.reset();
    if (m_victims->parent)
        m_parent.reset();
    if (m_victims->runnerLast)
        m_runner.reset();
    if (m_victims->application)
        QCoreApplication::quit();
    else
        m_shownAfterwards += shownDialogs();
}

bool LifetimeTest::runIt()
{
    if (!m_victims->application)
        return m_runner->run();
    bool accepted = true;
    QTimer::singleShot(0, this, [this, &accepted] { accepted = m_runner->run(); });
    QCoreApplication::exec();
    return accepted;
}

void LifetimeTest::runAndCompare()
{
    QVERIFY(!runIt());
    QCOMPARE(m_strikes, 1);
    QCOMPARE(m_shownAfterwards, QStringList());
    QCOMPARE(shownDialogs(), QStringList());
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(QFile::exists(m_folders->path("old.dat")));
}

void LifetimeTest::makeRunnerOfTheRow()
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    m_kind = kind;
    m_runnerKind = runner;
    m_victims = victims;
    makeRunner();
}

void LifetimeTest::onOpenDialog(std::function<void(QFileDialog&)> act)
{
    m_driver->onDialog<QFileDialog>("act in the dialog", std::move(act));
}

void LifetimeTest::choose(const QString& name)
{
    if (RecordingShell* const shell = m_switch->shell())
        shell->results = QStringList{m_folders->path(name)};
    else
        onOpenDialog([name](QFileDialog& dialog) { acceptName(dialog, name); });
}
