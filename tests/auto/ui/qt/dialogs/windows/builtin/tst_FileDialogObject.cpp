#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "TestHome.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

using namespace zelmar::internal;

namespace {

using Action = std::function<void(QFileDialog&)>;

} // namespace

Q_DECLARE_METATYPE(Action)

/// Tests the object itself, how its dialog is shown and closed, and its event sinks.
class tst_FileDialogObject : public BuiltInDialogRunTest
{
    Q_OBJECT

private Q_SLOTS:
    void interfaces_data();
    void interfaces();
    void nullPointers();
    void stateBeforeShow();
    void fileTypesAreSetOnce();
    void unusedOperations();
    void sinksComeAndGo();

    void accepted();
    void cancelledWith_data();
    void cancelledWith();
    void closedUnderAQuestion();
    void notShowing();
    void showingAlready();
    void releasedWhileShowing();
    void secondShow();
    void switchesBetweenRuns();
    void ownerIsTheParent();
    void unknownOwner();
    void ownerDestroyedUnderAQuestion();

    void failureOfASinkMeansNothing();
    void throwingSinkIsTheLastOneCalled();
    void sinkWithoutControlEvents();
    void unadviseDuringAnEvent();
    void titleAndLabels();

private:
    void onShow(const char* name, const std::function<void()>& action) override;
    void userAccepts(const QString& file) override { acceptName(*m_shown, file); }
    void userPicksType(int index) override { pickFilter(*m_shown, index); }
    void userCancels() override { cancel(*m_shown); }
    QString takeProblem() override;

    std::unique_ptr<DialogDriver> m_driver; ///< null until a step needs it
    QFileDialog* m_shown = nullptr;
};

void tst_FileDialogObject::onShow(const char* name, const std::function<void()>& action)
{
    if (!m_driver)
        m_driver = std::make_unique<DialogDriver>();
    m_driver->onDialog<QFileDialog>(name, [this, action](QFileDialog& shown) {
        m_shown = &shown;
        action();
    });
}

QString tst_FileDialogObject::takeProblem()
{
    const auto driver = std::exchange(m_driver, nullptr);
    return driver ? driver->problem() : QString();
}

// The object

void tst_FileDialogObject::interfaces_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    QTest::newRow("open") << QFileDialog::AcceptOpen;
    QTest::newRow("save") << QFileDialog::AcceptSave;
}

void tst_FileDialogObject::interfaces()
{
    QFETCH(QFileDialog::AcceptMode, mode);
    const auto dialog = std::make_unique<BuiltInDialog>(classOf(mode));
    const IID own = mode == QFileDialog::AcceptOpen ? IID_IFileOpenDialog : IID_IFileSaveDialog;
    const IID others = mode == QFileDialog::AcceptOpen ? IID_IFileSaveDialog : IID_IFileOpenDialog;
    const auto identity = queryFor<IUnknown>(IID_IUnknown, dialog->get());
    for (const IID& iid : {own, IID_IFileDialog, IID_IModalWindow, IID_IFileDialogCustomize, IID_IUnknown}) {
        const auto found = queryFor<IUnknown>(iid, dialog->get());
        QVERIFY(found);
        QCOMPARE(queryFor<IUnknown>(IID_IUnknown, found.get()), identity);
        QVERIFY(queryFor<IUnknown>(IID_IFileDialogCustomize, found.get()));
    }
    for (const IID& iid : {others, IID_IFileDialogEvents, IID_IShellItem}) {
        void* found = dialog->get();
        QCOMPARE(dialog->get()->QueryInterface(iid, &found), E_NOINTERFACE);
        QVERIFY(!found);
    }
    // Each interface works.
    FILEOPENDIALOGOPTIONS options = 0;
    const auto plain = queryFor<IFileDialog>(IID_IFileDialog, identity.get());
    QCOMPARE(plain->GetOptions(&options), S_OK);
    const auto controls = queryFor<IFileDialogCustomize>(IID_IFileDialogCustomize, plain.get());
    QCOMPARE(controls->AddPushButton(1, L"a"), S_OK);
    QCOMPARE(controls->AddPushButton(1, L"a"), E_INVALIDARG);
}

void tst_FileDialogObject::nullPointers()
{
    const BuiltInDialog dialog;
    QCOMPARE(dialog->QueryInterface(IID_IFileDialog, nullptr), E_POINTER);
    QCOMPARE(dialog->GetFileTypeIndex(nullptr), E_POINTER);
    QCOMPARE(dialog->GetOptions(nullptr), E_POINTER);
    QCOMPARE(dialog->GetFolder(nullptr), E_POINTER);
    QCOMPARE(dialog->GetFileName(nullptr), E_POINTER);
    QCOMPARE(dialog->GetResult(nullptr), E_POINTER);
    QCOMPARE(queryFor<IFileOpenDialog>(IID_IFileOpenDialog, dialog.get())->GetResults(nullptr), E_POINTER);
    DWORD cookie = 0;
    QCOMPARE(dialog->Advise(nullptr, &cookie), E_POINTER);
    QCOMPARE(dialog->Advise(&dialog.sink(), nullptr), E_POINTER);
    QCOMPARE(dialog->SetFolder(nullptr), E_INVALIDARG);
    QCOMPARE(dialog->SetDefaultFolder(nullptr), E_INVALIDARG);
    QCOMPARE(dialog->SetFileTypes(1, nullptr), E_INVALIDARG);
    QCOMPARE(dialog->SetFileName(nullptr), S_OK); // counts as an empty string
    QCOMPARE(dialog->SetTitle(nullptr), S_OK);
}

void tst_FileDialogObject::stateBeforeShow()
{
    for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        const auto dialog = std::make_unique<BuiltInDialog>(classOf(mode));
        FILEOPENDIALOGOPTIONS options = 0;
        QCOMPARE(dialog->get()->GetOptions(&options), S_OK);
        QCOMPARE(options, mode == QFileDialog::AcceptOpen
                              ? DWORD(FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST)
                              : DWORD(FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST | FOS_NOREADONLYRETURN));
        QCOMPARE(dialog->get()->SetOptions(0x12345678), S_OK);
        QCOMPARE(dialog->get()->GetOptions(&options), S_OK);
        QCOMPARE(options, 0x12345678U);

        QCOMPARE(dialog->typeIndex(), 1);
        for (const UINT index : {3U, 0U, 1000U}) { // every index is out of range without types
            QCOMPARE(dialog->get()->SetFileTypeIndex(index), S_OK);
            QCOMPARE(dialog->typeIndex(), int(index));
        }
        LPWSTR name = nullptr;
        QCOMPARE(dialog->get()->GetFileName(&name), S_OK);
        QCOMPARE(textOf(CoTaskMemString(name).get()), QString());
        QVERIFY(dialog->setName(QStringLiteral(u"\u6e2c \"b\" ")));
        QCOMPARE(dialog->name(), QStringLiteral(u"\u6e2c \"b\" "));

        IShellItem* item = nullptr;
        QCOMPARE(dialog->get()->GetFolder(&item), E_FAIL);
        QVERIFY(dialog->setFolder(path(QStringLiteral("deeper"))));
        QCOMPARE(dialog->folder(), path(QStringLiteral("deeper")));
    }
}

void tst_FileDialogObject::fileTypesAreSetOnce()
{
    const BuiltInDialog dialog;
    QVERIFY(!dialog.setTypes({}));
    const COMDLG_FILTERSPEC type{L"Data", L"*.dat"};
    QCOMPARE(dialog->SetFileTypes(1, &type), S_OK);
    QCOMPARE(dialog->SetFileTypes(1, &type), E_UNEXPECTED);
}

void tst_FileDialogObject::unusedOperations()
{
    const BuiltInDialog dialog;
    QCOMPARE(dialog->SetFilter(nullptr), E_NOTIMPL);
    QCOMPARE(dialog->AddPlace(nullptr, FDAP_TOP), E_NOTIMPL);
    QCOMPARE(dialog->SetClientGuid(IID_IUnknown), E_NOTIMPL);
    QCOMPARE(dialog->ClearClientData(), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddMenu(1, L"a"), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddComboBox(1), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddRadioButtonList(1), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddEditBox(1, L"a"), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddSeparator(1), E_NOTIMPL);
    QCOMPARE(dialog.controls().AddText(1, L"a"), E_NOTIMPL);
    QCOMPARE(dialog.controls().StartVisualGroup(1, L"a"), E_NOTIMPL);
    QCOMPARE(dialog.controls().EndVisualGroup(), E_NOTIMPL);
    CDCONTROLSTATEF state = CDCS_ENABLED;
    QCOMPARE(dialog.controls().GetControlState(1, &state),
             E_INVALIDARG); // none of the refused calls has added a control
}

void tst_FileDialogObject::sinksComeAndGo()
{
    const ComPtr<RecordingSink> sink(new RecordingSink, false);
    {
        const BuiltInDialog dialog;
        DWORD first = 0;
        DWORD second = 0;
        QCOMPARE(dialog->Advise(sink.get(), &first), S_OK);
        QCOMPARE(dialog->Advise(sink.get(), &second), S_OK);
        QVERIFY(first != 0 && second != 0 && first != second && first != dialog.cookie());
        QCOMPARE(dialog->Unadvise(0), E_INVALIDARG);
        QCOMPARE(dialog->Unadvise(first), S_OK);
        QCOMPARE(dialog->Unadvise(first), E_INVALIDARG);
        QCOMPARE(sink->AddRef(), 3U); // this reference, the test's, and the one of the second cookie
        QCOMPARE(sink->Release(), 2U);
    }
    QCOMPARE(sink->AddRef(), 2U);
    QCOMPARE(sink->Release(), 1U);
}

// Showing and closing

void tst_FileDialogObject::accepted()
{
    for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        const auto dialog = makeDialog(classOf(mode));
        const QString name =
            mode == QFileDialog::AcceptOpen ? QStringLiteral("a.dat") : QStringLiteral(u"n\u00e4u.dat");
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), path(name));
        QCOMPARE(dialog->results(), mode == QFileDialog::AcceptOpen ? QStringList(path(name)) : QStringList());
        QCOMPARE(dialog->sink().events, openedAndAccepted);
    }
}

void tst_FileDialogObject::cancelledWith_data()
{
    QTest::addColumn<Action>("action");
    const auto row = [](const char* name, const Action& action) { QTest::newRow(name) << action; };
    row("Escape", [](QFileDialog& dialog) { cancel(dialog); });
    row("Cancel button",
        [](QFileDialog& dialog) { dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click(); });
    row("window closed", [](QFileDialog& dialog) { dialog.close(); });
}

void tst_FileDialogObject::cancelledWith()
{
    QFETCH(Action, action);
    const auto dialog = makeDialog();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [&action](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        action(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    IShellItem* item = nullptr;
    QVERIFY(FAILED((*dialog)->GetResult(&item)));
    QVERIFY(!item);
    QCOMPARE(dialog->results(), QStringList());
    QCOMPARE(dialog->sink().events, opened);
}

/// Close() also closes a question that Qt has opened.
void tst_FileDialogObject::closedUnderAQuestion()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("close below", [&dialog](QMessageBox&) { (*dialog)->Close(E_FAIL); });
    QCOMPARE(dialog->show(m_window.get()), E_FAIL);
    QCOMPARE(dialog->sink().events, opened);
}

void tst_FileDialogObject::notShowing()
{
    const BuiltInDialog dialog;
    QCOMPARE(dialog->Close(S_OK), E_UNEXPECTED);
    QCOMPARE(dialog.result(), QString());
    QCOMPARE(dialog.results(), QStringList());
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { cancel(shown); });
    dialog.show();
    QCOMPARE(dialog->Close(S_OK), E_UNEXPECTED);
}

void tst_FileDialogObject::showingAlready()
{
    const BuiltInDialog dialog;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("show again", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.show(), E_UNEXPECTED);
        const COMDLG_FILTERSPEC type{L"Data", L"*.dat"};
        QCOMPARE(dialog->SetFileTypes(1, &type), E_UNEXPECTED);
        cancel(shown);
    });
    QCOMPARE(dialog.show(), cancelledResult);
}

void tst_FileDialogObject::releasedWhileShowing()
{
    ComPtr<RecordingSink> sink;
    IFileDialog* object = nullptr;
    {
        BuiltInDialog dialog;
        sink = &dialog.sink();
        object = dialog.detach();
    }
    sink->whenTold = [object](const QString& event) {
        if (event == QLatin1String("folder"))
            object->Release(); // the last reference from outside the object
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { cancel(shown); });
    QCOMPARE(object->Show(nullptr), cancelledResult);
    QCOMPARE(sink->AddRef(), 2U); // the object is destroyed and has released its reference
    sink->Release();
}

void tst_FileDialogObject::secondShow()
{
    const auto dialog = makeDialogWithTypes();
    (*dialog)->SetTitle(L"Title");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) {
        pickFilter(shown, 2);
        acceptName(shown, QStringLiteral("c.csv"));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("c.csv")));
    QCOMPARE(dialog->typeIndex(), 3);

    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Title"));
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 2);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("c.csv"));
        cancel(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->result(), QString()); // not the result of the first run
    QCOMPARE(dialog->results(), QStringList());
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "type", "ok", "folder"}));
}

/// Each run uses the settings at its start and nothing of an earlier run.
void tst_FileDialogObject::switchesBetweenRuns()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    DialogDriver driver;
    for (const bool prompt : {false, true, false}) {
        QVERIFY(dialog->setOptions(prompt ? FOS_OVERWRITEPROMPT : 0, prompt ? 0 : FOS_OVERWRITEPROMPT));
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
        if (prompt)
            driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QVERIFY(driver.finished());
    }
    for (const bool extension : {true, false}) {
        QCOMPARE((*dialog)->SetDefaultExtension(extension ? L"dat" : L""), S_OK);
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new")); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), path(extension ? QStringLiteral("new.dat") : QStringLiteral("new")));
    }
}

void tst_FileDialogObject::ownerIsTheParent()
{
    const BuiltInDialog dialog;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [this](QFileDialog& shown) {
        QCOMPARE(shown.parentWidget(), m_window.get());
        QVERIFY(shown.isModal());
        cancel(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
}

void tst_FileDialogObject::unknownOwner()
{
    const BuiltInDialog dialog;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        QVERIFY(!shown.parentWidget());
        cancel(shown);
    });
    const auto unknown = reinterpret_cast<HWND>(quintptr(0x7fffff0)); // NOLINT(performance-no-int-to-ptr)
    QCOMPARE(dialog->Show(unknown), cancelledResult);
}

void tst_FileDialogObject::ownerDestroyedUnderAQuestion()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("destroy", [this](QMessageBox&) { m_window.reset(); });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QVERIFY(!m_window);
    QCOMPARE(dialog->result(), QString());
}

// Event sinks

void tst_FileDialogObject::failureOfASinkMeansNothing()
{
    const auto dialog = makeDialogWithTypes();
    dialog->sink().whenTold = [](const QString&) { return E_NOTIMPL; };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) {
        pickFilter(shown, 2);
        acceptName(shown, QStringLiteral("a.dat"));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "type", "ok"}));
}

void tst_FileDialogObject::throwingSinkIsTheLastOneCalled()
{
    const BuiltInDialog dialog;
    dialog.sink().whenTold = [](const QString&) -> HRESULT { throw std::runtime_error("first"); };
    const ComPtr<RecordingSink> second(new RecordingSink, false);
    DWORD cookie = 0;
    dialog->Advise(second.get(), &cookie);
    QVERIFY_EXCEPTION_THROWN(dialog.show(m_window.get()), std::runtime_error);
    QCOMPARE(dialog.sink().events, opened);
    QCOMPARE(second->events, QStringList());
}

void tst_FileDialogObject::sinkWithoutControlEvents()
{
    const auto dialog = makeDialog();
    QCOMPARE(dialog->controls().AddPushButton(1, L"Action"), S_OK);
    dialog->sink().hasControlEvents = false;
    const ComPtr<RecordingSink> other(new RecordingSink, false);
    DWORD cookie = 0;
    (*dialog)->Advise(other.get(), &cookie);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("click", [](QFileDialog& shown) {
        buttonNamed(shown, QStringLiteral("Action"))->click();
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->sink().events, opened);
    QCOMPARE(other->events, (QStringList{"folder", "button 1"}));
}

void tst_FileDialogObject::unadviseDuringAnEvent()
{
    const BuiltInDialog dialog;
    ComPtr<RecordingSink> second(new RecordingSink, false);
    DWORD secondCookie = 0;
    dialog->Advise(second.get(), &secondCookie);
    int calls = 0;
    second->whenTold = [&calls](const QString&) {
        ++calls;
        return S_OK;
    };
    second.reset(); // only the dialog holds a reference now
    dialog.sink().whenTold = [&dialog, secondCookie](const QString&) {
        dialog->Unadvise(secondCookie);
        return dialog->Unadvise(dialog.cookie());
    };
    const ComPtr<RecordingSink> third(new RecordingSink, false);
    DWORD thirdCookie = 0;
    dialog->Advise(third.get(), &thirdCookie);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) {
        QCOMPARE(RecordingSink::alive(), 2);
        shown.setDirectory(QDir::rootPath());
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.sink().events, opened);
    QCOMPARE(calls, 0); // it was removed before it would have been called
    QCOMPARE(third->events, (QStringList{"folder", "folder"}));
}

void tst_FileDialogObject::titleAndLabels()
{
    const BuiltInDialog dialog;
    QCOMPARE(dialog->SetTitle(L"\u6e2c"), S_OK);
    QCOMPARE(dialog->SetOkButtonLabel(L"&Read"), S_OK);
    QCOMPARE(dialog->SetFileNameLabel(L"&Run:"), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&dialog](QFileDialog& shown) {
        const QPushButton& accept = acceptButton(shown);
        QCOMPARE(shown.windowTitle(), QStringLiteral(u"\u6e2c"));
        QCOMPARE(accept.text(), QStringLiteral("&Read"));
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("&Run:"));
        dialog->SetTitle(L"other");
        dialog->SetOkButtonLabel(L"Other");
        QCOMPARE(shown.windowTitle(), QStringLiteral("other"));
        QCOMPARE(accept.text(), QStringLiteral("Other"));
        dialog->SetOkButtonLabel(L"");
        QCOMPARE(accept.text(), QStringLiteral("&Open"));
        dialog->SetFileNameLabel(L"&Other:");
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("&Other:"));
        dialog->SetFileNameLabel(L"");
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("File &name:"));
        cancel(shown);
    });
    dialog.show(m_window.get());
}

UI_TEST_MAIN(tst_FileDialogObject)
#include "tst_FileDialogObject.moc"
