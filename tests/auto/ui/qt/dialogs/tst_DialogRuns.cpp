#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "property/Property.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <boost/make_shared.hpp>

#include <memory>

using zelmar::ApplicationSettings;

namespace {

const QString data = QStringLiteral("Data (*.dat)");
const QString tables = QStringLiteral("Tables (*.csv)");
const QString all = QStringLiteral("All (*)");

/// A validator that refuses true.
class OnlyOff : public zelmar::ValidatorInterface<bool>
{
public:
    zelmar::ValidationResult validate(const bool& value) const override
    {
        return value ? zelmar::ValidationResult("not now") : zelmar::ValidationResult();
    }
};

} // namespace

/// Sets the switches of a dialog repeatedly, and checks what one run leaves for the next.
class tst_DialogRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void overwriteQuestion_data();
    void overwriteQuestion();
    void overwriteQuestionBetweenRuns();
    void checks_data();
    void checks();
    void shownFolderWithoutChecks();
    void directoriesOnly();
    void fileMode();
    void filtersToAndFro();
    void patternEqualToTheFilterInEachRun();
    void boxTellsOfFiltersAfterAPattern();
    void defaultSizeTakenBack();
    void geometryKeysToAndFro();
    void helpInEachRun();
    void cursorsInEachRun();

    void handlesBetweenRuns();
    void handlesToAndFro();
    void checkBoxInEachRun();
    void refusedCheckBox();
    void acceptMenuInEachRun();
    void acceptMenuRefilled();
    void acceptMenuThatTellsNothing();
    void folderOfEachRun();

private:
    std::unique_ptr<QExtendedFileDialog> makeQtDialog(QFileDialog::AcceptMode mode, const std::string& helpTopic = {});
    std::unique_ptr<ExtendedWinFileDialog> makeNativeDialog(bool menu = false);
    template <typename Dialog>
    int run(Dialog& dialog, const std::function<void(QFileDialog&)>& step);
    /// Runs the dialog and accepts the name of an existing file. Returns whether the dialog asked about overwriting,
    /// which is answered with Yes.
    template <typename Dialog>
    bool asksAboutOverwriting(Dialog& dialog);

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
};

void tst_DialogRuns::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.csv", "inner/d.dat"})
        m_folders->addFile(QLatin1String(name));
    m_window = std::make_unique<QWidget>();
}

void tst_DialogRuns::cleanup()
{
    m_window.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

std::unique_ptr<QExtendedFileDialog> tst_DialogRuns::makeQtDialog(QFileDialog::AcceptMode mode,
                                                                  const std::string& helpTopic)
{
    return std::make_unique<QExtendedFileDialog>(*m_window, "Title", m_folders->path().toStdString(),
                                                 "Data (*.dat);;Tables (*.csv);;All (*)", helpTopic, mode);
}

std::unique_ptr<ExtendedWinFileDialog> tst_DialogRuns::makeNativeDialog(bool menu)
{
    return std::make_unique<ExtendedWinFileDialog>(*m_window, "Title", m_folders->path().toStdString(), "All (*)", "",
                                                   QFileDialog::AcceptOpen, menu);
}

template <typename Dialog>
int tst_DialogRuns::run(Dialog& dialog, const std::function<void(QFileDialog&)>& step)
{
    DialogDriver driver;
    driver.onDialog<QFileDialog>("run", step);
    const int result = dialog.exec();
    return result;
}

template <typename Dialog>
bool tst_DialogRuns::asksAboutOverwriting(Dialog& dialog)
{
    bool asked = false;
    const auto watch = std::make_shared<QTimer>();
    QObject::connect(watch.get(), &QTimer::timeout, watch.get(), [&asked] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked = true;
            box->button(QMessageBox::Yes)->click();
        }
    });
    watch->start(0);
    const int result = run(dialog, [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    if (result != QDialog::Accepted)
        qWarning("the dialog was not accepted");
    return asked;
}

// Switches of the Qt-drawn dialog and of the facade

void tst_DialogRuns::overwriteQuestion_data()
{
    QTest::addColumn<DialogBackend>("kind");
    QTest::addColumn<QVector<bool>>("switches"); // values for setDontConfirmOverwrite(), in order
    for (const DialogBackend kind : dialogBackends()) {
        const auto row = [&](const char* what, const QVector<bool>& switches) {
            QTest::addRow("%s: %s", nameOf(kind), what) << kind << switches;
        };
        row("never touched", {});
        row("off", {true});
        row("on as it was", {false});
        row("off and on again", {true, false});
        row("off, on, off", {true, false, true});
    }
}

void tst_DialogRuns::overwriteQuestion()
{
    QFETCH(DialogBackend, kind);
    QFETCH(QVector<bool>, switches);
    const DialogBackendSwitch kindSwitch(kind);
    ExtendedFileDialog dialog(*m_window, "Title", m_folders->path().toStdString(), "All (*)", "",
                              QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    for (const bool dontAsk : switches)
        dialog.setDontConfirmOverwrite(dontAsk);
    const bool asks = switches.isEmpty() || !switches.last();
    if (RecordingShell* const shell = kindSwitch.shell()) {
        dialog.exec();
        QCOMPARE(bool(shell->options & FOS_OVERWRITEPROMPT), asks);
    } else {
        QCOMPARE(asksAboutOverwriting(dialog), asks);
    }
}

/// Each setting takes effect at the next run of the Qt-drawn dialog, but only before the first run of the native one.
void tst_DialogRuns::overwriteQuestionBetweenRuns()
{
    const auto drawn = makeQtDialog(QFileDialog::AcceptSave);
    QVERIFY(asksAboutOverwriting(*drawn));
    for (const bool dontAsk : {true, false, true}) {
        drawn->setDontConfirmOverwrite(dontAsk);
        QCOMPARE(asksAboutOverwriting(*drawn), !dontAsk);
    }
    if (systemLimits::nativeDialogIsTheSystems)
        return;
    ExtendedWinFileDialog native(*m_window, "Title", m_folders->path().toStdString(), "All (*)", "",
                                 QFileDialog::AcceptSave, false);
    native.setDontConfirmOverwrite(true);
    QVERIFY(!asksAboutOverwriting(native));
    native.setDontConfirmOverwrite(false);
    QVERIFY(!asksAboutOverwriting(native));
}

void tst_DialogRuns::checks_data()
{
    QTest::addColumn<QVector<bool>>("switches");
    QTest::newRow("on as they were") << QVector<bool>{true};
    QTest::newRow("off") << QVector<bool>{false};
    QTest::newRow("off and on again") << QVector<bool>{false, true};
    QTest::newRow("off, on, off") << QVector<bool>{false, true, false};
}

void tst_DialogRuns::checks()
{
    QFETCH(QVector<bool>, switches);
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    for (const bool perform : switches) {
        dialog->performSelectedFileValidation(perform);
        DialogDriver driver;
        driver.onDialog<QFileDialog>("missing",
                                     [](QFileDialog& shown) { acceptName(shown, QStringLiteral("none.dat")); });
        if (perform) {
            driver.onDialog<QMessageBox>("told so", [](QMessageBox& box) { box.accept(); });
            driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { cancel(shown); });
        }
        QCOMPARE(dialog->exec(), int(perform ? QDialog::Rejected : QDialog::Accepted));
    }
}

/// Qt selects the shown folder when the box is cleared. Without checks that folder is accepted.
void tst_DialogRuns::shownFolderWithoutChecks()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    dialog->performSelectedFileValidation(false);
    const auto typeAndEmpty = [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("b"));
        QTest::keyClick(&fileNameEdit(shown), Qt::Key_Backspace);
        QCOMPARE(fileNameEdit(shown).text(), QString());
        pressReturn(shown);
    };
    QCOMPARE(run(*dialog, typeAndEmpty), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders->path()});
}

void tst_DialogRuns::directoriesOnly()
{
    const DialogBackendSwitch kind(DialogBackend::QtDrawn);
    ExtendedFileDialog facade(*m_window, "Title", m_folders->path().toStdString(), "All (*)", "",
                              QFileDialog::AcceptOpen);
    const auto drawn = makeQtDialog(QFileDialog::AcceptOpen);
    drawn->selectNameFilter(all);
    const QStringList folders{QStringLiteral("inner")};
    const QStringList everything{QStringLiteral("a.dat"), QStringLiteral("b.dat"), QStringLiteral("c.csv"),
                                 QStringLiteral("inner")};
    for (const bool on : {true, false, true, false}) {
        const QStringList& expected = on ? folders : everything;
        facade.setShowDirectoriesOnly(on);
        drawn->setShowDirectoriesOnly(on);
        for (int i = 0; i < 2; ++i) {
            DialogDriver driver;
            driver.onDialogWhen<QFileDialog>(
                "listed", [&expected](QFileDialog& shown) { return listedNames(shown) == expected; },
                [](QFileDialog& shown) { cancel(shown); });
            i == 0 ? facade.exec() : drawn->exec();
        }
    }
}

void tst_DialogRuns::fileMode()
{
    const DialogBackendSwitch kind(DialogBackend::QtDrawn);
    ExtendedFileDialog dialog(*m_window, "Title", m_folders->path().toStdString(), "All (*)", "",
                              QFileDialog::AcceptOpen);
    const auto accept = [this, &dialog](QFileDialog::FileMode mode, const QString& typed, const QStringList& chosen) {
        dialog.setFileMode(mode);
        QCOMPARE(run(dialog, [&typed](QFileDialog& shown) { acceptName(shown, typed); }), int(QDialog::Accepted));
        QStringList paths;
        for (const QString& name : chosen)
            paths += m_folders->path(name);
        QCOMPARE(dialog.selectedFiles(), paths);
    };
    const QString both = QStringLiteral("\"a.dat\" \"b.dat\"");
    accept(QFileDialog::ExistingFiles, both, {QStringLiteral("a.dat"), QStringLiteral("b.dat")});
    accept(QFileDialog::ExistingFile, QStringLiteral("b.dat"), {QStringLiteral("b.dat")});
    accept(QFileDialog::AnyFile, QStringLiteral("new"), {QStringLiteral("new")});
    accept(QFileDialog::ExistingFiles, both, {QStringLiteral("a.dat"), QStringLiteral("b.dat")});
    accept(QFileDialog::Directory, QStringLiteral("inner"), {QStringLiteral("inner")});
}

void tst_DialogRuns::filtersToAndFro()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    const QStringList first{data, tables, all};
    const QStringList second{QStringLiteral("Texts (*.txt)")};
    const auto* model = dialog->findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    for (const QStringList& filters : {first, second, first, QStringList(), first}) {
        dialog->setNameFilters(filters);
        const auto typePattern = [&filters, model](QFileDialog& shown) {
            QCOMPARE(shown.nameFilters(), filters);
            QCOMPARE(fileTypeCombo(shown).count(), filters.size());
            if (!filters.isEmpty())
                QCOMPARE(model->nameFilters().join(QLatin1Char(' ')), filters.first().section('(', 1).chopped(1));
            acceptName(shown, QStringLiteral("b*"));
            QCOMPARE(model->nameFilters(), QStringList{QStringLiteral("b*")});
            cancel(shown);
        };
        run(*dialog, typePattern); // The next run must not start with the temporary filter of this one.
        run(*dialog, typePattern);
    }
    run(*dialog, [&first](QFileDialog& shown) {
        QCOMPARE(shown.nameFilters(), first);
        cancel(shown);
    });
}

/// A typed pattern that gives a filter of the caller must not make that filter a temporary one in the next run.
void tst_DialogRuns::patternEqualToTheFilterInEachRun()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    for (int count = 0; count < 4; ++count) {
        run(*dialog, [count](QFileDialog& shown) {
            QCOMPARE(shown.nameFilters(), (QStringList{data, tables, all}));
            if (count == 0)
                acceptName(shown, QStringLiteral("*.dat"));
            cancel(shown);
        });
    }
}

/// The signals of the file-type box are blocked only while a pattern replaces the filter.
void tst_DialogRuns::boxTellsOfFiltersAfterAPattern()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    QSignalSpy picked(dialog.get(), &QFileDialog::filterSelected);
    for (int count = 1; count < 4; ++count) {
        run(*dialog, [&picked, count](QFileDialog& shown) {
            acceptName(shown, QStringLiteral("b*"));
            acceptName(shown, QStringLiteral("c*"));
            QVERIFY(!fileTypeCombo(shown).signalsBlocked());
            picked.clear();
            pickFilter(shown, count % 3); // differs from the filter of the previous run
            QCOMPARE(picked.size(), 1);
            QCOMPARE(shown.nameFilters(), (QStringList{data, tables, all}));
            cancel(shown);
        });
    }
}

void tst_DialogRuns::defaultSizeTakenBack()
{
    const auto sizeOfARun = [this](const std::vector<QSize>& sizes) {
        const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
        // No geometry is stored under a key that was never used.
        static int keys = 0;
        dialog->setGeometryPersistenceKey("size" + std::to_string(++keys));
        for (const QSize& size : sizes)
            dialog->setDefaultSize(size);
        QSize shownSize;
        run(*dialog, [&shownSize](QFileDialog& shown) {
            shownSize = shown.size();
            cancel(shown);
        });
        return shownSize;
    };
    const QSize own = sizeOfARun({});
    QVERIFY(own != QSize(777, 555));
    QCOMPARE(sizeOfARun({QSize(777, 555)}), QSize(777, 555));
    QCOMPARE(sizeOfARun({QSize(777, 555), QSize(-1, -1)}), own);
    QCOMPARE(sizeOfARun({QSize(777, 555), QSize(-1, -1), QSize(777, 555)}), QSize(777, 555));
}

void tst_DialogRuns::geometryKeysToAndFro()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    auto& settings = ApplicationSettings::getInstance();
    const std::string keys[] = {"one", "two"};
    for (int visit = 0; visit < 4; ++visit) {
        const std::string& key = keys[visit % 2];
        const std::string& other = keys[1 - visit % 2];
        settings.depositValue(key, "rubbish"); // No run stores this value.
        const QByteArray kept = settings.getByteArrayValue(other);
        dialog->setGeometryPersistenceKey(key);
        run(*dialog, [](QFileDialog& shown) { cancel(shown); });
        const QByteArray geometry = settings.getByteArrayValue(key);
        QVERIFY(!geometry.isEmpty() && geometry != "rubbish");
        QCOMPARE(settings.getByteArrayValue(other), kept);
    }
}

void tst_DialogRuns::helpInEachRun()
{
    int topics = 0;
    auto& help = zelmar::HelpLauncher::getInstance();
    help.setHandler([&topics](const std::string&) { ++topics; });
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen, "topic");
    for (int count = 1; count < 4; ++count) {
        run(*dialog, [](QFileDialog& shown) {
            const auto* box = shown.findChild<QDialogButtonBox*>();
            QCOMPARE(box->buttons().size(), 3);
            QPushButton* const button = box->button(QDialogButtonBox::Help);
            QVERIFY(button);
            button->click();
            cancel(shown);
        });
        QCOMPARE(topics, count);
        if (count == 2) // Setting the accept mode removes the button.
            dialog->setAcceptMode(QFileDialog::AcceptOpen);
    }
    help.setHandler({});
}

void tst_DialogRuns::cursorsInEachRun()
{
    const auto dialog = makeQtDialog(QFileDialog::AcceptOpen);
    for (const char* folder : {"inner", "", "inner", ""}) {
        dialog->setDirectory(m_folders->path(QLatin1String(folder)));
        DialogDriver driver;
        driver.onDialogWhen<QFileDialog>(
            "idle",
            [](QFileDialog&) {
                const QCursor* cursor = QGuiApplication::overrideCursor();
                return cursor && cursor->shape() == Qt::ArrowCursor;
            },
            [](QFileDialog& shown) { cancel(shown); });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QVERIFY(!QGuiApplication::overrideCursor());
    }
}

// The native dialog over the built-in dialog object

#define SKIP_WITHOUT_BUILT_IN_DIALOG()                                                                                 \
    if (systemLimits::nativeDialogIsTheSystems)                                                                        \
    QSKIP(systemLimits::nativeDialogIsTheSystems)

void tst_DialogRuns::handlesBetweenRuns()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog();
    QWidget& handle = *dialog->addCustomButton("Action", [] {});
    const auto look = [this, &dialog](bool visible, bool enabled) {
        run(*dialog, [visible, enabled](QFileDialog& shown) {
            const auto* button = buttonNamed(shown, QStringLiteral("Action"));
            QVERIFY(button);
            QCOMPARE(button->isVisible(), visible);
            QCOMPARE(button->isEnabled(), enabled);
            cancel(shown);
        });
    };
    look(true, true);
    handle.hide();
    look(false, true);
    handle.setEnabled(false);
    look(false, false);
    handle.show();
    look(true, false);
    handle.setEnabled(true);
    look(true, true);
}

void tst_DialogRuns::handlesToAndFro()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog();
    QWidget& handle = *dialog->addCustomButton("Action", [] {});
    handle.hide(); // is called before the first run
    handle.show();
    handle.hide();
    handle.setEnabled(false);
    handle.setEnabled(true);
    run(*dialog, [&handle](QFileDialog& shown) {
        const auto* button = buttonNamed(shown, QStringLiteral("Action"));
        QVERIFY(!button->isVisible());
        QVERIFY(button->isEnabled());
        handle.show(); // is called while the dialog is open
        QVERIFY(button->isVisible());
        handle.setEnabled(false);
        QVERIFY(!button->isEnabled());
        cancel(shown);
    });
    run(*dialog, [](QFileDialog& shown) {
        const auto* button = buttonNamed(shown, QStringLiteral("Action"));
        QVERIFY(button->isVisible());
        QVERIFY(!button->isEnabled());
        cancel(shown);
    });
}

void tst_DialogRuns::checkBoxInEachRun()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog();
    const auto checked = boost::make_shared<zelmar::Property<bool>>(true);
    int changes = 0;
    checked->signalValueChanged().connect([&changes](bool) { ++changes; });
    dialog->addCustomCheckBox("Box", checked);
    for (const bool before : {true, false, true}) {
        run(*dialog, [before](QFileDialog& shown) {
            auto* box = shown.findChild<QCheckBox*>();
            QCOMPARE(box->isChecked(), before);
            box->click();
            box->click();
            box->click();
            cancel(shown);
        });
        QCOMPARE(checked->value(), !before);
        QCOMPARE(changes, 3);
        changes = 0;
    }
}

void tst_DialogRuns::refusedCheckBox()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog();
    const auto checked = boost::make_shared<zelmar::Property<bool>>(false);
    checked->setValidator(boost::make_shared<OnlyOff>());
    dialog->addCustomCheckBox("Box", checked);
    for (int count = 0; count < 2; ++count) {
        DialogDriver driver;
        driver.onDialog<QFileDialog>("switch on", [](QFileDialog& shown) {
            auto* box = shown.findChild<QCheckBox*>();
            if (box->isChecked()) // The state of the previous run is kept.
                box->click();
            box->click();
        });
        QVERIFY_EXCEPTION_THROWN(dialog->exec(), zelmar::InvalidPropertyValueException);
        QVERIFY(!checked->value());
        QVERIFY(dialog->selectedFiles().isEmpty());
    }
    QCOMPARE(run(*dialog, [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); }),
             int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders->path(QStringLiteral("a.dat"))});
}

void tst_DialogRuns::acceptMenuInEachRun()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog(true);
    dialog->addAcceptButtonOption("&Open", 7);
    dialog->addAcceptButtonOption("Open &read-only", 8);
    const auto pick = [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        pickFromMenu(1);
        acceptMenuArrow(shown).click();
    };
    QCOMPARE(run(*dialog, pick), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 8);
    QCOMPARE(run(*dialog, [](QFileDialog& shown) { cancel(shown); }), int(QDialog::Rejected));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 8); // No other item was picked.
    // The button itself means the first item, whatever was picked before.
    QCOMPARE(run(*dialog, [](QFileDialog& shown) { acceptName(shown, QStringLiteral("b.dat")); }),
             int(QDialog::Accepted));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 7);
}

void tst_DialogRuns::acceptMenuRefilled()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog(true);
    const auto accept = [this, &dialog] {
        return run(*dialog, [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    };
    const auto arrowIsShown = [this, &dialog] {
        bool found = false;
        run(*dialog, [&found](QFileDialog& shown) {
            const auto* arrow = shown.findChild<QToolButton*>(QStringLiteral("acceptMenuArrow"));
            found = arrow && arrow->isVisible();
            cancel(shown);
        });
        return found;
    };
    dialog->addAcceptButtonOption("first", 1);
    QCOMPARE(accept(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 1);
    QVERIFY(arrowIsShown());
    dialog->clearAcceptMenuOptions();
    QVERIFY(!arrowIsShown());
    QCOMPARE(accept(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 1); // The menu has no item, so that the value is not read.
    dialog->addAcceptButtonOption("second", 2);
    dialog->addAcceptButtonOption("third", 3);
    QVERIFY(arrowIsShown());
    QCOMPARE(accept(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 2);
}

/// The last option that was read is kept if reading fails, or if the id that is read belongs to no item of the program.
void tst_DialogRuns::acceptMenuThatTellsNothing()
{
    RecordingShell shell;
    const auto dialog = makeNativeDialog(true); // The id of its menu is 0.
    dialog->addAcceptButtonOption("first", 7);
    dialog->addAcceptButtonOption("second", 8);
    const auto optionAfter = [&shell, &dialog](std::optional<DWORD> item) {
        shell.selectedItem = item;
        dialog->exec();
        return dialog->selectedAcceptMenuOption();
    };
    QCOMPARE(optionAfter(std::nullopt), 255);
    QCOMPARE(optionAfter(2), 8);
    QCOMPARE(optionAfter(99), 8);
    QCOMPARE(optionAfter(std::nullopt), 8);
    QCOMPARE(optionAfter(1), 7);
}

void tst_DialogRuns::folderOfEachRun()
{
    SKIP_WITHOUT_BUILT_IN_DIALOG();
    const auto dialog = makeNativeDialog();
    const QString inner = m_folders->path(QStringLiteral("inner"));
    run(*dialog, [](QFileDialog& shown) {
        acceptName(shown, QStringLiteral("inner"));
        cancel(shown);
    });
    QCOMPARE(dialog->directory().absolutePath(), inner);
    run(*dialog, [&inner](QFileDialog& shown) {
        QCOMPARE(shown.directory().absolutePath(), inner);
        acceptName(shown, QStringLiteral(".."));
        cancel(shown);
    });
    QCOMPARE(dialog->directory().absolutePath(), m_folders->path());
}

UI_TEST_MAIN(tst_DialogRuns)
#include "tst_DialogRuns.moc"
