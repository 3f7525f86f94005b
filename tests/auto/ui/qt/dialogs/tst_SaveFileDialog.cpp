#include "ui/qt/dialogs/SaveFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "DialogKind.h"
#include "FileDialogActions.h"
#include "RecordingMessageHandler.h"
#include "TestHome.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <type_traits>

using zelmar::ApplicationSettings;
using Calls = RecordingMessageHandler::Calls;

static_assert(std::has_virtual_destructor<SaveFileDialog>::value, "derived facades are deleted by their base");
static_assert(!std::is_copy_constructible<SaveFileDialog>::value, "a facade owns its flow");
static_assert(!std::is_base_of<QObject, SaveFileDialog>::value, "a facade is a plain class");

namespace {

const std::vector<std::string> writers{"Data files (*.dat)", "Tables (*.csv)", "Notes (*.txt)"};

} // namespace

class tst_SaveFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isNativeAtFirst();
    void keepsItsKind();
    void handsEverythingOn_data() { addDialogKindRows(); }
    void handsEverythingOn();
    void takesOneFilter_data() { addDialogKindRows(); }
    void takesOneFilter();
    void usesItsHandler_data() { addDialogKindRows(); }
    void usesItsHandler();
    void asksInTheDefaultWords_data() { addDialogKindRows(); }
    void asksInTheDefaultWords();
    void tellsOfCancelling_data() { addDialogKindRows(); }
    void tellsOfCancelling();

private:
    /// Launches `dialog` with a user who accepts `name`, or cancels if it is null, and answers `questions` questions
    /// with Yes.
    bool launch(SaveFileDialog& dialog, const DialogKindSwitch& kind, const QString& name, int questions = 0);
    std::string path(const QString& name = {}) const { return m_folders->path(name).toStdString(); }

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    QStringList m_questions;
};

void tst_SaveFileDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("old.csv", "contents");
    m_window = std::make_unique<QWidget>();
    m_questions.clear();
}

bool tst_SaveFileDialog::launch(SaveFileDialog& dialog, const DialogKindSwitch& kind, const QString& name,
                                int questions)
{
    DialogDriver driver;
    if (RecordingShell* const shell = kind.shell()) {
        shell->showResult = name.isNull() ? HRESULT_FROM_WIN32(ERROR_CANCELLED) : S_OK;
        shell->results = QStringList{m_folders->path(name)};
    } else {
        driver.onDialog<QFileDialog>("choose", [name](QFileDialog& shown) {
            if (name.isNull())
                cancel(shown);
            else
                acceptName(shown, name);
        });
    }
    for (int question = 0; question < questions; ++question)
        driver.onDialog<QMessageBox>("yes", [this](QMessageBox& box) {
            m_questions += box.windowTitle() + ": " + box.text();
            box.button(QMessageBox::Yes)->click();
        });
    const bool launched = dialog.launch();
    if (!driver.finished())
        qWarning("%s", qPrintable(driver.problem()));
    return launched;
}

void tst_SaveFileDialog::isNativeAtFirst()
{
    RecordingShell shell;
    const SaveFileDialog dialog(m_window.get(), "", "", "", writers, 0, "");
    QCOMPARE(shell.takeCalls(), QStringList{"create save dialog"});
}

void tst_SaveFileDialog::keepsItsKind()
{
    const DialogKindSwitch kind(DialogKind::Recording);
    SaveFileDialog native(m_window.get(), "", path(), "", writers, 0, "");
    ExtendedFileDialog::setUseNativeFileDialog(false);
    SaveFileDialog drawn(m_window.get(), "", path(), "", writers, 0, "");
    ExtendedFileDialog::setUseNativeFileDialog(true);

    QVERIFY(launch(native, kind, "new"));
    DialogDriver driver;
    bool isDrawn = false;
    driver.onDialog<QFileDialog>("look", [&isDrawn](QFileDialog& dialog) {
        isDrawn = qobject_cast<QExtendedFileDialog*>(&dialog);
        cancel(dialog);
    });
    QVERIFY(!drawn.launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QVERIFY(isDrawn);
}

void tst_SaveFileDialog::handsEverythingOn()
{
    QFETCH(DialogKind, kind);
    const DialogKindSwitch kindSwitch(kind);
    SaveFileDialog dialog(m_window.get(), "Save", path(), "run", writers, 1, "");
    QCOMPARE(dialog.selectedWriter(), 1);
    QCOMPARE(dialog.selectedFilter(), writers[1]);
    QCOMPARE(dialog.selectedFilename(), std::string());
    QVERIFY(launch(dialog, kindSwitch, QString::fromUtf8("r\xC3\xBCn")));
    QCOMPARE(dialog.selectedFilename(), path(QString::fromUtf8("r\xC3\xBCn.csv")));
    QCOMPARE(dialog.selectedWriter(), 1);
}

void tst_SaveFileDialog::takesOneFilter()
{
    QFETCH(DialogKind, kind);
    const DialogKindSwitch kindSwitch(kind);
    SaveFileDialog dialog(m_window.get(), "Save", path(), "run", "Notes (*.txt)", "");
    QCOMPARE(dialog.selectedWriter(), 0);
    QVERIFY(launch(dialog, kindSwitch, "run"));
    QCOMPARE(dialog.selectedFilename(), path("run.txt"));
}

void tst_SaveFileDialog::usesItsHandler()
{
    QFETCH(DialogKind, kind);
    const DialogKindSwitch kindSwitch(kind);
    for (const bool list : {true, false}) {
        Calls calls;
        auto handler = std::make_unique<RecordingMessageHandler>(calls);
        const auto dialog = list ? std::make_unique<SaveFileDialog>(m_window.get(), "Save", path(), "", writers, 1, "",
                                                                    std::move(handler))
                                 : std::make_unique<SaveFileDialog>(m_window.get(), "Save", path(), "", writers[1], "",
                                                                    std::move(handler));
        QVERIFY(launch(*dialog, kindSwitch, "old.csv", 1));
        QCOMPARE(calls, (Calls{"check " + path("old.csv"), "overwrite"}));
    }
}

void tst_SaveFileDialog::asksInTheDefaultWords()
{
    QFETCH(DialogKind, kind);
    const DialogKindSwitch kindSwitch(kind);
    SaveFileDialog dialog(m_window.get(), "Save", path(), "", writers, 1, "");
    QVERIFY(launch(dialog, kindSwitch, "old.csv", 1));
    QCOMPARE(m_questions,
             QStringList{"Save: File " + m_folders->path("old.csv") + " already exists. Do you want to replace it?"});
}

void tst_SaveFileDialog::tellsOfCancelling()
{
    QFETCH(DialogKind, kind);
    const DialogKindSwitch kindSwitch(kind);
    SaveFileDialog dialog(m_window.get(), "Save", path(), "", writers, 0, "");
    QVERIFY(!launch(dialog, kindSwitch, {}));
}

UI_TEST_MAIN(tst_SaveFileDialog)
#include "tst_SaveFileDialog.moc"
