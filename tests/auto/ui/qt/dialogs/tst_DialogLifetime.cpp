#include "LifetimeTest.h"

#include "platform/HelpLauncher.h"
#include "property/Property.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "FileDialogActions.h"
#include "TestHome.h"

#include <boost/smart_ptr/make_shared.hpp>

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <functional>

using zelmar::HelpLauncher;
using zelmar::internal::ComPtr;

namespace {

using Action = std::function<void()>;

/// Clicks the button of the dialog that has this text.
void clickButton(QFileDialog& dialog, const QString& text)
{
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            button->click();
            return;
        }
    }
    qWarning("There is no button %s", qPrintable(text));
}

QModelIndex fileInList(const QFileDialog& dialog, const QString& name)
{
    const auto* const list = dialog.findChild<QListView*>("listView");
    const QModelIndexList found =
        list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    return found.value(0);
}

} // namespace

/// Destroys objects at various moments of a run of a file dialog.
class tst_DialogLifetime : public LifetimeTest
{
    Q_OBJECT

private Q_SLOTS:
    void whileTheDialogIsOpen_data();
    void whileTheDialogIsOpen() { play(&tst_DialogLifetime::strikeWhenOpen); }
    void duringTheDialogsOwnQuestion_data();
    void duringTheDialogsOwnQuestion() { play(&tst_DialogLifetime::strikeDuringOwnQuestion); }
    void duringTheQuestionWhetherToDelete_data();
    void duringTheQuestionWhetherToDelete() { play(&tst_DialogLifetime::strikeDuringDeletion); }
    void inTheHelpHandler_data();
    void inTheHelpHandler() { play(&tst_DialogLifetime::strikeInHelp); }
    void inACustomButtonsAction_data() { addNativeRows(); }
    void inACustomButtonsAction() { play(&tst_DialogLifetime::strikeInButton); }
    void inACheckBoxPropertysSlot_data() { addNativeRows(); }
    void inACheckBoxPropertysSlot() { play(&tst_DialogLifetime::strikeInCheckBox); }
    void inAFilterObserver_data() { addNativeRows(); }
    void inAFilterObserver() { play(&tst_DialogLifetime::strikeInFilterObserver); }
    void whileTheAcceptMenuIsOpen_data() { addBuiltInRows(); }
    void whileTheAcceptMenuIsOpen() { play(&tst_DialogLifetime::strikeWhenMenuIsOpen); }
    void whileAnActionThrows_data();
    void whileAnActionThrows();
    void inASlotOnQtsSignal_data();
    void inASlotOnQtsSignal();

    void facadeOutlivesItsParent_data() { addDialogBackendRows(); }
    void facadeOutlivesItsParent();
    void nativeDialogOutlivesItsParent();
    void activeWindowGoesUnderLaunchFileDialog_data() { addDialogBackendRows(); }
    void activeWindowGoesUnderLaunchFileDialog();
    void outerGoesWhileInnerRuns_data();
    void outerGoesWhileInnerRuns();
    void runningTwiceIsRejected_data();
    void runningTwiceIsRejected();
    void sinkOutlivesItsDialog();
    void closesTheRecordedDialog();

private:
    using Scene = void (tst_DialogLifetime::*)();

    void addRows(const std::vector<RunnerKind>& runners, const std::vector<const Victims*>& victims);
    void addNativeRows();
    void addBuiltInRows();

    void play(Scene scene);

    void strikeWhenOpen();
    void strikeDuringOwnQuestion();
    void strikeDuringDeletion();
    void strikeInHelp();
    void strikeInButton();
    void strikeInCheckBox();
    void strikeInFilterObserver();
    void strikeWhenMenuIsOpen();

    boost::shared_ptr<zelmar::Property<bool>> m_checked;
};

// Rows

void tst_DialogLifetime::addRows(const std::vector<RunnerKind>& runners, const std::vector<const Victims*>& victims)
{
    addLifetimeColumns();
    for (const DialogBackend kind : dialogBackends())
        for (const RunnerKind runner : runners)
            for (const Victims* victim : victims) {
                // The system decides how its dialog reacts when the application quits. Only flows give access to a
                // dialog.
                if ((victim->application && kind == DialogBackend::Recording)
                    || (victim->dialog && runner != RunnerKind::Flow))
                    continue;
                QTest::addRow("%s %s: %s", nameOf(kind), nameOf(runner), victim->name) << kind << runner << victim;
            }
}

void tst_DialogLifetime::addNativeRows()
{
    addLifetimeColumns();
    for (const DialogBackend kind : dialogBackends())
        for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner})
            if (kind != DialogBackend::QtDrawn)
                QTest::addRow("%s: %s", nameOf(kind), victim->name) << kind << RunnerKind::Dialog << victim;
}

void tst_DialogLifetime::addBuiltInRows()
{
    addLifetimeColumns();
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP(systemLimits::nativeDialogIsTheSystems);
    for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &application})
        QTest::addRow("%s", victim->name) << DialogBackend::BuiltIn << RunnerKind::Dialog << victim;
}

void tst_DialogLifetime::play(Scene scene)
{
    makeRunnerOfTheRow();
    (this->*scene)();
    runAndCompare();
}

// File dialogs

void tst_DialogLifetime::whileTheDialogIsOpen_data()
{
    addRows(
        {RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow},
        {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &dialogOnly, &dialogAndRunner, &application});
}

void tst_DialogLifetime::strikeWhenOpen()
{
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [this] { strike(); };
    else
        onOpenDialog([this](QFileDialog&) { strike(); });
}

void tst_DialogLifetime::duringTheDialogsOwnQuestion_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog},
            {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &application});
}

void tst_DialogLifetime::strikeDuringOwnQuestion()
{
    if (m_switch->shell()) {
        strikeWhenOpen(); // The system asks its own question, so that only the dialog can be tested.
        return;
    }
    choose("old.dat");
    m_driver->onDialog<QMessageBox>("strike", [this](QMessageBox&) { strike(); });
}

void tst_DialogLifetime::duringTheQuestionWhetherToDelete_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade},
            {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner});
}

/// The user has pressed Delete on a file in the list. The file must still exist afterwards.
void tst_DialogLifetime::strikeDuringDeletion()
{
    if (m_switch->shell()) {
        strikeWhenOpen();
        return;
    }
    m_driver->onDialogWhen<QFileDialog>(
        "press Delete on a file",
        [](QFileDialog& dialog) {
            return dialog.isActiveWindow() && fileInList(dialog, QStringLiteral("old.dat")).isValid();
        },
        [](QFileDialog& dialog) {
            auto* const list = dialog.findChild<QListView*>("listView");
            list->setCurrentIndex(fileInList(dialog, QStringLiteral("old.dat")));
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Delete);
        });
    m_driver->onDialog<QMessageBox>("strike", [this](QMessageBox&) { strike(); });
}

void tst_DialogLifetime::inTheHelpHandler_data()
{
    addRows(
        {RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow},
        {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &dialogOnly, &dialogAndRunner, &application});
}

void tst_DialogLifetime::strikeInHelp()
{
    HelpLauncher::getInstance().setHandler([this](const std::string& topic) {
        strike();
        QCOMPARE(topic, std::string(helpTopic)); // The argument must still be valid.
    });
    const DWORD helpButton = m_runnerKind == RunnerKind::Dialog ? 1 : 0;
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell, helpButton] { shell->controlEvents()->OnButtonClicked(nullptr, helpButton); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Help"); });
}

void tst_DialogLifetime::strikeInButton()
{
    m_runner->nativeDialog()->addCustomButton("Strike", [this] { strike(); });
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnButtonClicked(nullptr, 4); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Strike"); });
}

void tst_DialogLifetime::strikeInCheckBox()
{
    m_checked = boost::make_shared<zelmar::Property<bool>>(false);
    m_checked->signalValueChanged().connect([this](bool) {
        m_checked.reset();
        strike();
    });
    m_runner->nativeDialog()->addCustomCheckBox("Strike", m_checked);
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnCheckButtonToggled(nullptr, 4, TRUE); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Strike"); });
}

void tst_DialogLifetime::strikeInFilterObserver()
{
    m_runner->nativeDialog()->currentFilterIndex()->signalValueChanged().connect([this](int) { strike(); });
    if (RecordingShell* const shell = m_switch->shell()) {
        shell->fileType = 2;
        shell->fileName = "new.dat";
        shell->onShow = [shell] { shell->events->OnTypeChange(shell->dialog); };
        return;
    }
    onOpenDialog([](QFileDialog& dialog) { pickFilter(dialog, 1); });
}

void tst_DialogLifetime::strikeWhenMenuIsOpen()
{
    onOpenDialog([this](QFileDialog& dialog) {
        typeName(dialog, "new.dat");
        QPushButton& button = acceptButton(dialog);
        QTimer strikeSoon;
        connect(&strikeSoon, &QTimer::timeout, this, [this, &strikeSoon] {
            if (!QApplication::activePopupWidget())
                return;
            strikeSoon.stop();
            strike();
        });
        strikeSoon.start(0);
        QTest::keyClick(&button, Qt::Key_Down);
    });
}

void tst_DialogLifetime::whileAnActionThrows_data()
{
    addNativeRows();
}

void tst_DialogLifetime::whileAnActionThrows()
{
    makeRunnerOfTheRow();
    m_runner->nativeDialog()->addCustomButton("Throw", [this] {
        strike();
        throw std::runtime_error("thrown");
    });
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnButtonClicked(nullptr, 4); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Throw"); });
    QVERIFY_EXCEPTION_THROWN(m_runner->run(), std::runtime_error);
    QCOMPARE(m_strikes, 1);
    QCOMPARE(shownDialogs(), QStringList());
}

namespace {

/// A function that connects `strike` to a signal of the dialog, and makes the dialog emit the signal.
using Provoke = std::function<void(QFileDialog&, const Action& strike)>;

template <typename Signal>
Provoke when(Signal signal, const std::function<void(QFileDialog&)>& act)
{
    return [signal, act](QFileDialog& dialog, const Action& strike) {
        QObject::connect(&dialog, signal, qApp, strike);
        act(dialog);
    };
}

} // namespace
Q_DECLARE_METATYPE(Provoke)

void tst_DialogLifetime::inASlotOnQtsSignal_data()
{
    QTest::addColumn<RunnerKind>("runner");
    QTest::addColumn<const Victims*>("victims");
    QTest::addColumn<Provoke>("provoke");
    const auto accept = [](QFileDialog& dialog) { acceptName(dialog, "new.dat"); };
    const std::vector<std::pair<const char*, Provoke>> signalsOfQt{
        {"fileSelected", when(&QFileDialog::fileSelected, accept)},
        {"filesSelected", when(&QFileDialog::filesSelected, accept)},
        {"accepted", when(&QDialog::accepted, accept)},
        {"finished", when(&QDialog::finished, accept)},
        {"rejected", when(&QDialog::rejected, [](QFileDialog& dialog) { cancel(dialog); })},
        {"filterSelected", when(&QFileDialog::filterSelected, [](QFileDialog& dialog) { pickFilter(dialog, 1); })},
        {"directoryEntered", when(&QFileDialog::directoryEntered, [](QFileDialog& dialog) {
             dialog.findChild<QToolButton*>("toParentButton")->click();
         })}};
    for (const RunnerKind runner : {RunnerKind::Facade, RunnerKind::FlowFacade, RunnerKind::Flow})
        for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner})
            for (const auto& [signal, provoke] : signalsOfQt)
                QTest::addRow("%s of a %s: %s", signal, nameOf(runner), victim->name) << runner << victim << provoke;
}

void tst_DialogLifetime::inASlotOnQtsSignal()
{
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    QFETCH(Provoke, provoke);
    m_kind = DialogBackend::QtDrawn;
    m_runnerKind = runner;
    m_victims = victims;
    makeRunner();
    onOpenDialog([this, provoke](QFileDialog& dialog) {
        provoke(dialog, [this] {
            if (m_strikes == 0) // Closing the dialog emits some of the signals again.
                strike();
        });
    });
    runAndCompare();
}

// The parent

void tst_DialogLifetime::facadeOutlivesItsParent()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    ExtendedFileDialog dialog(*m_parent, "", m_folders->path().toStdString(), filters, "", QFileDialog::AcceptOpen);
    m_parent.reset();
    QCOMPARE(dialog.nameFilters(), QString(filters).split(";;"));
    QCOMPARE(dialog.directory().canonicalPath(), QDir(m_folders->path()).canonicalPath());
    if (kindSwitch.shell())
        kindSwitch.shell()->showResult = HRESULT_FROM_WIN32(ERROR_CANCELLED);
    else
        onOpenDialog([](QFileDialog& shown) { cancel(shown); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void tst_DialogLifetime::nativeDialogOutlivesItsParent()
{
    RecordingShell shell;
    ExtendedWinFileDialog dialog(*m_parent, "", "", filters, "", QFileDialog::AcceptOpen, false);
    QCOMPARE(dialog.parent(), m_parent.get());
    m_parent.reset();
    QVERIFY(!dialog.parent());
    QCOMPARE(dialog.exec(), QDialog::Accepted);
    QVERIFY(shell.takeCalls().contains("Show 0"));
}

void tst_DialogLifetime::activeWindowGoesUnderLaunchFileDialog()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    m_parent->show();
    m_parent->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_parent.get());
    if (RecordingShell* const shell = kindSwitch.shell())
        shell->onShow = [this] { m_parent.reset(); };
    else
        onOpenDialog([this](QFileDialog&) { m_parent.reset(); });
    std::vector<std::string> files{"before"};
    int filter = 7;
    QVERIFY(!zelmar::ui::LaunchFileDialog(files, filter, "Open", {"Data (*.dat)"}, {}, false, false, 0));
    QCOMPARE(files, std::vector<std::string>{"before"});
    QCOMPARE(filter, 7);
    QCOMPARE(shownDialogs(), QStringList());
}

// Nested runs

void tst_DialogLifetime::outerGoesWhileInnerRuns_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow}, {&runnerOnly});
}

void tst_DialogLifetime::outerGoesWhileInnerRuns()
{
    makeRunnerOfTheRow();
    QWidget otherWindow;
    bool innerAccepted = false;
    const Action runInner = [&] {
        ExtendedFileDialog inner(otherWindow, "Inner", m_folders->path().toStdString(), filters, "",
                                 QFileDialog::AcceptSave);
        innerAccepted = inner.exec() == QDialog::Accepted;
    };
    if (RecordingShell* const shell = m_switch->shell()) {
        int shown = 0;
        shell->onShow = [&, shell] {
            ++shown == 1 ? runInner() : strike();
            shell->showResult = S_OK; // Closing the outer dialog must not cancel the inner one.
        };
        QVERIFY(!m_runner->run());
        QVERIFY(innerAccepted);
        return;
    }
    onOpenDialog([&](QFileDialog&) { runInner(); });
    m_driver->onDialogWhen<QFileDialog>(
        "strike in the inner dialog", [](QFileDialog& dialog) { return dialog.windowTitle() == "Inner"; },
        [this](QFileDialog& dialog) {
            strike();
            QCOMPARE(shownDialogs().size(), 1);
            acceptName(dialog, "new.dat");
        });
    QVERIFY(!m_runner->run());
    QVERIFY(innerAccepted);
    QCOMPARE(shownDialogs(), QStringList());
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogLifetime::runningTwiceIsRejected_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow}, {&runnerOnly});
}

void tst_DialogLifetime::runningTwiceIsRejected()
{
    makeRunnerOfTheRow();
    bool innerAccepted = true;
    if (RecordingShell* const shell = m_switch->shell()) {
        shell->results = QStringList{m_folders->path("new.dat")};
        shell->onShow = [&, shown = 0]() mutable {
            if (++shown == 1)
                innerAccepted = m_runner->run(); // If it were shown again, the recording dialog would accept at once.
        };
    } else {
        onOpenDialog([&](QFileDialog& dialog) {
            innerAccepted = m_runner->run();
            acceptName(dialog, "new.dat");
        });
    }
    QVERIFY(m_runner->run());
    QVERIFY(!innerAccepted);
    QVERIFY(!QGuiApplication::overrideCursor());
}

// The objects of the shell

void tst_DialogLifetime::sinkOutlivesItsDialog()
{
    RecordingShell shell;
    shell.folder = m_folders->path();
    shell.fileName = "name.dat";
    ComPtr<IFileDialogEvents> kept;
    ComPtr<IFileDialogControlEvents> keptControls;
    ComPtr<IFileDialog> keptDialog;
    shell.onShow = [&] {
        kept = shell.events;
        keptControls = shell.controlEvents();
        keptDialog = ComPtr<IFileDialog>(shell.dialog);
    };
    int clicks = 0;
    auto checked = boost::make_shared<zelmar::Property<bool>>(false);
    {
        ExtendedWinFileDialog dialog(*m_parent, "", "", filters, "", QFileDialog::AcceptSave, false);
        dialog.addCustomButton("Button", [&clicks] { ++clicks; });
        dialog.addCustomCheckBox("Box", checked);
        dialog.exec();
    }
    shell.takeCalls();
    QCOMPARE(kept->OnFolderChange(keptDialog.get()), S_OK);
    QCOMPARE(kept->OnTypeChange(keptDialog.get()), S_OK);
    QCOMPARE(keptControls->OnButtonClicked(nullptr, 0), S_OK);
    QCOMPARE(keptControls->OnCheckButtonToggled(nullptr, 1, TRUE), S_OK);
    QCOMPARE(clicks, 0);
    QVERIFY(!checked->value());
    QCOMPARE(shell.takeCalls(), QStringList());
}

void tst_DialogLifetime::closesTheRecordedDialog()
{
    RecordingShell shell;
    auto dialog =
        std::make_unique<ExtendedWinFileDialog>(*m_parent, "", "", filters, "", QFileDialog::AcceptOpen, false);
    int liveWhenDeleted = 0;
    shell.onShow = [&] {
        shell.takeCalls();
        dialog.reset();
        liveWhenDeleted = shell.liveObjects;
    };
    QCOMPARE(dialog->exec(), QDialog::Rejected);
    const QString close = QStringLiteral("Close %1").arg(HRESULT_FROM_WIN32(ERROR_CANCELLED));
    QCOMPARE(shell.takeCalls(), (QStringList{close, "Unadvise"}));
    QCOMPARE(liveWhenDeleted, 1); // A function of the dialog object is still running.
    QCOMPARE(shell.liveObjects, 0);
}

UI_TEST_MAIN(tst_DialogLifetime)
#include "tst_DialogLifetime.moc"
