#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include <memory>
#include <stdexcept>
#include <utility>

using namespace zelmar::internal;

namespace {

const std::vector<std::pair<QString, QString>> types{{QStringLiteral("Data"), QStringLiteral("*.dat")},
                                                     {QStringLiteral("Tables"), QStringLiteral("*.csv;*.tab")},
                                                     {QStringLiteral("All"), QStringLiteral("*")}};

using Action = std::function<void(QFileDialog&)>;

enum class Class { Open, Save };

std::unique_ptr<BuiltInDialog> makeDialogOf(Class kind)
{
    return std::make_unique<BuiltInDialog>(kind == Class::Open ? CLSID_FileOpenDialog : CLSID_FileSaveDialog);
}

/// Returns the names in the list, in the order that the user sees.
QStringList listOrder(QFileDialog& dialog)
{
    auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        names += list->model()->index(row, 0, list->rootIndex()).data().toString();
    return names;
}

QStringList listedNames(QFileDialog& dialog)
{
    QStringList names = listOrder(dialog);
    names.sort();
    return names;
}

/// Returns whether the list is sorted. The model sorts after it has read the folder, and rows move then.
bool isListSorted(QFileDialog& dialog)
{
    return listOrder(dialog) == QStringList{"deeper", "a.dat", "b.dat", "c.csv"};
}

void selectInList(QFileDialog& dialog, const QString& name)
{
    auto* tree = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    takeKeyboardFocus(*tree);
    QTest::keyClicks(tree, name);
}

void press(QFileDialog& dialog, const char* button)
{
    dialog.findChild<QAbstractButton*>(QLatin1String(button))->click();
}

} // namespace

Q_DECLARE_METATYPE(Action)
Q_DECLARE_METATYPE(Class)

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
    void ownerIsTheParent();
    void unknownOwner();
    void ownerDestroyedUnderAQuestion();
    void failureOfASinkMeansNothing();
    void throwingSinkIsTheLastOneCalled();
    void sinkWithoutControlEvents();
    void unadviseDuringAnEvent();

    void folderEvents();
    void folderSetWhileOpen();
    void folderOfTheNextShow();
    void defaultFolder();

    void typeEvents();
    void typeDoesNotChangeTheName();
    void typeIndex_data();
    void typeIndex();
    void equalTypes();
    void typesFilterTheList_data();
    void typesFilterTheList();
    void typedPattern();
    void extensionOnTypeChange();

    void nameWhileOpen();
    void nameReplacesTheSelection();
    void preselectedName_data();
    void preselectedName();
    void preselectedNames();
    void namesWithQuotes_data();
    void namesWithQuotes();
    void nameWithQuoteIsNotOverwrittenUnasked();
    void defaultExtension();

    void several();
    void severalForSaving();
    void folders();
    void missingFile();
    void overwriting_data();
    void overwriting();
    void overwritingRefused();
    void secondShow();
    void titleAndLabels();
    void refusedNameWithAQuote_data();
    void refusedNameWithAQuote();
    void switchesBetweenRuns();
    void typedPatternInEachRun();

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
    QTest::addColumn<Class>("kind");
    QTest::newRow("open") << Class::Open;
    QTest::newRow("save") << Class::Save;
}

void tst_FileDialogObject::interfaces()
{
    QFETCH(Class, kind);
    const auto dialog = makeDialogOf(kind);
    const IID own = kind == Class::Open ? IID_IFileOpenDialog : IID_IFileSaveDialog;
    const IID others = kind == Class::Open ? IID_IFileSaveDialog : IID_IFileOpenDialog;
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
    for (const Class kind : {Class::Open, Class::Save}) {
        const auto dialog = makeDialogOf(kind);
        FILEOPENDIALOGOPTIONS options = 0;
        QCOMPARE(dialog->get()->GetOptions(&options), S_OK);
        QCOMPARE(options, kind == Class::Open ? DWORD(FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST)
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
        QVERIFY(dialog->setFolder(m_folders->path(QStringLiteral("deeper"))));
        QCOMPARE(dialog->folder(), m_folders->path(QStringLiteral("deeper")));
    }
}

void tst_FileDialogObject::fileTypesAreSetOnce()
{
    const BuiltInDialog dialog;
    QVERIFY(!dialog.setTypes({}));
    QVERIFY(dialog.setTypes(types));
    const COMDLG_FILTERSPEC again{L"Others", L"*.other"};
    QCOMPARE(dialog->SetFileTypes(1, &again), E_UNEXPECTED);
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

// Closing

void tst_FileDialogObject::accepted()
{
    for (const Class kind : {Class::Open, Class::Save}) {
        const auto dialog = makeDialogOf(kind);
        QVERIFY(dialog->setFolder(m_folders->path()));
        const QString name = kind == Class::Open ? QStringLiteral("a.dat") : QStringLiteral(u"n\u00e4u.dat");
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), m_folders->path(name));
        QCOMPARE(dialog->results(), kind == Class::Open ? QStringList(m_folders->path(name)) : QStringList());
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
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [&action](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        action(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
    IShellItem* item = nullptr;
    QVERIFY(FAILED(dialog->GetResult(&item)));
    QVERIFY(!item);
    QCOMPARE(dialog.results(), QStringList());
    QCOMPARE(dialog.sink().events, opened);
}

/// Close() also closes a question that Qt has opened.
void tst_FileDialogObject::closedUnderAQuestion()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("close below", [&dialog](QMessageBox&) { dialog->Close(E_FAIL); });
    QCOMPARE(dialog.show(m_window.get()), E_FAIL);
    QCOMPARE(dialog.sink().events, opened);
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

void tst_FileDialogObject::failureOfASinkMeansNothing()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    dialog.sink().whenTold = [](const QString&) { return E_NOTIMPL; };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) {
        pickFilter(shown, 2);
        acceptName(shown, QStringLiteral("a.dat"));
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.sink().events, (QStringList{"folder", "type", "ok"}));
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
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QCOMPARE(dialog.controls().AddPushButton(1, L"Action"), S_OK);
    dialog.sink().hasControlEvents = false;
    const ComPtr<RecordingSink> other(new RecordingSink, false);
    DWORD cookie = 0;
    dialog->Advise(other.get(), &cookie);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("click", [](QFileDialog& shown) {
        for (auto* button : shown.findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String("Action"))
                button->click();
        }
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.sink().events, opened);
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

// Folders

void tst_FileDialogObject::folderEvents()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QStringList shownFolders;
    dialog.sink().whenTold = [&dialog, &shownFolders](const QString& event) {
        if (event == QLatin1String("folder"))
            shownFolders += dialog.folder();
        return S_OK;
    };
    const QString top = m_folders->path();
    const QString deeper = m_folders->path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk about", [&](QFileDialog& shown) {
        QCOMPARE(shownFolders, QStringList{top});
        acceptName(shown, QStringLiteral("deeper")); // a typed folder
        press(shown, "toParentButton");
        press(shown, "backButton");
        press(shown, "forwardButton");
        selectInList(shown, QStringLiteral("deeper"));
        QTest::keyClick(shown.findChild<QTreeView*>(QStringLiteral("treeView")), Qt::Key_Return);
        acceptName(shown, QStringLiteral(".."));
        acceptName(shown, deeper);
        shown.setSidebarUrls({QUrl::fromLocalFile(top)});
        auto* sidebar = shown.findChild<QListView*>(QStringLiteral("sidebar"));
        QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, Qt::NoModifier,
                          sidebar->visualRect(sidebar->model()->index(0, 0)).center());
        cancel(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
    QCOMPARE(shownFolders, (QStringList{top, deeper, top, deeper, top, deeper, top, deeper, top}));
    QCOMPARE(dialog.sink().events.count(QStringLiteral("folder")), 9);
    QCOMPARE(dialog.sink().events.size(), 9);
    QCOMPARE(dialog.folder(), top);
}

void tst_FileDialogObject::folderSetWhileOpen()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    const QString deeper = m_folders->path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("set", [&](QFileDialog& shown) {
        QVERIFY(dialog.setFolder(deeper));
        QCOMPARE(shown.directory().path(), deeper);
        QCOMPARE(dialog.folder(), deeper);
        QVERIFY(dialog.setFolder(deeper)); // no change
        acceptName(shown, QStringLiteral("d.dat"));
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.sink().events, (QStringList{"folder", "folder", "ok"}));
    QCOMPARE(dialog.result(), deeper + QStringLiteral("/d.dat"));
}

void tst_FileDialogObject::folderOfTheNextShow()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    const QString deeper = m_folders->path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("go on", [](QFileDialog& shown) {
        acceptName(shown, QStringLiteral("deeper"));
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.folder(), deeper);

    driver.onDialog<QFileDialog>("again", [&deeper](QFileDialog& shown) {
        QCOMPARE(shown.directory().path(), deeper);
        cancel(shown);
    });
    dialog.show(m_window.get());

    QVERIFY(dialog.setFolder(m_folders->path()));
    driver.onDialog<QFileDialog>("set anew", [this](QFileDialog& shown) {
        QCOMPARE(shown.directory().path(), m_folders->path());
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.sink().events.size(), 4);
}

void tst_FileDialogObject::defaultFolder()
{
    const QString deeper = m_folders->path(QStringLiteral("deeper"));
    void* item = nullptr;
    SHCreateItemFromParsingName(deeper.toStdWString().c_str(), nullptr, IID_IShellItem, &item);
    const auto folder = adopt(static_cast<IShellItem*>(item));
    for (const bool set : {false, true}) {
        const BuiltInDialog dialog;
        QCOMPARE(dialog->SetDefaultFolder(folder.get()), S_OK);
        if (set)
            dialog.setFolder(m_folders->path());
        const QString expected = set ? m_folders->path() : deeper;
        DialogDriver driver;
        driver.onDialog<QFileDialog>("look", [&expected](QFileDialog& shown) {
            QCOMPARE(shown.directory().path(), expected);
            cancel(shown);
        });
        dialog.show(m_window.get());
    }
}

// File types

void tst_FileDialogObject::typeEvents()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    QCOMPARE(dialog->SetFileTypeIndex(2), S_OK);
    QList<int> indexes;
    dialog.sink().whenTold = [&dialog, &indexes](const QString& event) {
        if (event == QLatin1String("type"))
            indexes += dialog.typeIndex();
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [&](QFileDialog& shown) {
        QCOMPARE(indexes, QList<int>()); // no event for the initial type
        QCOMPARE(shown.nameFilters(), (QStringList{"Data (*.dat)", "Tables (*.csv *.tab)", "All (*)"}));
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 1);
        QCOMPARE(dialog.typeIndex(), 2);
        pickFilter(shown, 0);
        pickFilter(shown, 0); // no change
        QTest::keyClick(&fileTypeCombo(shown), Qt::Key_Down);
        QCOMPARE(dialog->SetFileTypeIndex(3), S_OK); // the program's own change
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 2);
        QCOMPARE(dialog->SetFileTypeIndex(4), E_INVALIDARG);
        QCOMPARE(dialog->SetFileTypeIndex(0), E_INVALIDARG);
        QCOMPARE(dialog.typeIndex(), 3);
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(indexes, (QList<int>{1, 2}));
    QCOMPARE(dialog.typeIndex(), 3); // the choice persists after the dialog has closed
}

/// Changing the extension is left to the application, which is notified of the type.
void tst_FileDialogObject::typeDoesNotChangeTheName()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    QVERIFY(dialog.setName(QStringLiteral("my.name.xyz")));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("my.name.xyz"));
        pickFilter(shown, 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("my.name.xyz"));
        pressReturn(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("my.name.xyz")));
}

void tst_FileDialogObject::typeIndex_data()
{
    QTest::addColumn<uint>("set");
    QTest::addColumn<int>("shown");
    QTest::newRow("first") << 1U << 1;
    QTest::newRow("last") << 3U << 3;
    QTest::newRow("none") << 0U << 1;
    QTest::newRow("one too many") << 4U << 1;
    QTest::newRow("huge") << 0xffffffffU << 1;
    QTest::newRow("changes its sign") << 0x80000000U << 1;
}

void tst_FileDialogObject::typeIndex()
{
    QFETCH(uint, set);
    QFETCH(int, shown);
    const BuiltInDialog dialog;
    QVERIFY(dialog.setTypes(types));
    QCOMPARE(dialog->SetFileTypeIndex(set), S_OK);
    QCOMPARE(uint(dialog.typeIndex()), set);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&dialog, shown](QFileDialog& fileDialog) {
        QCOMPARE(dialog.typeIndex(), shown);
        QCOMPARE(fileTypeCombo(fileDialog).currentIndex(), shown - 1);
        cancel(fileDialog);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.typeIndex(), shown);
}

void tst_FileDialogObject::equalTypes()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setTypes({{QStringLiteral("Data"), QStringLiteral("*.dat")},
                             {QStringLiteral("Data"), QStringLiteral("*.csv")},
                             {QStringLiteral("Data"), QStringLiteral("*.dat")},
                             {QStringLiteral("Data  "), QStringLiteral("*.dat")}}));
    QCOMPARE(dialog->SetFileTypeIndex(3), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.typeIndex(), 3);
        for (const int index : {3, 0, 2, 1}) {
            pickFilter(shown, index);
            QCOMPARE(dialog.typeIndex(), index + 1);
        }
        pickFilter(shown, 2);
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.typeIndex(), 3);
    QCOMPARE(dialog.sink().events.count(QStringLiteral("type")), 5);

    driver.onDialog<QFileDialog>("again", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.typeIndex(), 3);
        cancel(shown);
    });
    dialog.show(m_window.get());
}

void tst_FileDialogObject::typesFilterTheList_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QStringList>("listed");

    const QString data = QStringLiteral("*.dat");
    // clang-format off
    QTest::newRow("one pattern") << "Data" << data << QStringList{"a.dat", "b.dat", "deeper"};
    QTest::newRow("two patterns") << "Both" << "a.*;*.csv" << QStringList{"a.dat", "c.csv", "deeper"};
    QTest::newRow("no pattern") << "All" << "" << QStringList{"a.dat", "b.dat", "c.csv", "deeper", QStringLiteral(u"e f.\u00e4")};
    QTest::newRow("brackets in the name") << "Odd (one) (*.csv)" << data << QStringList{"a.dat", "b.dat", "deeper"};
    QTest::newRow("a name that says nothing of it") << "File of Type" << "*.csv" << QStringList{"c.csv", "deeper"};
    QTest::newRow("letters that QFileDialog does not know") << "Rest" << QStringLiteral(u"*.\u00e4") << QStringList{"deeper", QStringLiteral(u"e f.\u00e4")};
    QTest::newRow("blank in the pattern") << "Rest" << "e *" << QStringList{"deeper", QStringLiteral(u"e f.\u00e4")};
    // clang-format on
}

void tst_FileDialogObject::typesFilterTheList()
{
    QFETCH(QString, name);
    QFETCH(QString, patterns);
    QFETCH(QStringList, listed);
    m_folders->addFile(QStringLiteral(u"e f.\u00e4"));
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes({{QStringLiteral("None"), QStringLiteral("none")}, {name, patterns}}));
    DialogDriver driver;
    const auto isListed = [&listed](QFileDialog& shown) { return listedNames(shown) == listed; };
    driver.onDialogWhen<QFileDialog>(
        "nothing", [](QFileDialog& shown) { return listedNames(shown) == QStringList{"deeper"}; },
        [](QFileDialog& shown) { pickFilter(shown, 1); });
    driver.onDialogWhen<QFileDialog>("listed", isListed, [](QFileDialog& shown) { cancel(shown); });
    driver.onDialogWhen<QFileDialog>("listed again", isListed, [](QFileDialog& shown) { cancel(shown); });
    dialog.show(m_window.get());
    dialog.show(m_window.get()); // starts with the type that was picked before
}

void tst_FileDialogObject::typedPattern()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pattern", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("*.csv; b*")); });
    driver.onDialogWhen<QFileDialog>(
        "listed",
        [](QFileDialog& shown) {
            return listedNames(shown) == QStringList{"b.dat", "c.csv", "deeper"};
        },
        [&dialog](QFileDialog& shown) {
            QCOMPARE(dialog.typeIndex(), 1);
            pickFilter(shown, 0); // picking the same type ends the pattern
        });
    driver.onDialogWhen<QFileDialog>(
        "type again",
        [](QFileDialog& shown) {
            return listedNames(shown) == QStringList{"a.dat", "b.dat", "deeper"};
        },
        [](QFileDialog& shown) { cancel(shown); });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
    QCOMPARE(dialog.sink().events, opened);
}

/// An application may adapt the extension of the name to the type.
void tst_FileDialogObject::extensionOnTypeChange()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    dialog.sink().whenTold = [&dialog](const QString& event) {
        if (event == QLatin1String("type"))
            dialog.setName(dialog.name().section(QLatin1Char('.'), 0, 0) + QStringLiteral(".csv"));
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type, pick", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("new.dat"));
        pickFilter(shown, 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("new.csv"));
        takeKeyboardFocus(fileNameEdit(shown));
        pressReturn(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("new.csv")));
}

// File name

void tst_FileDialogObject::nameWhileOpen()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setName(QStringLiteral("b.dat")));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type, set", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.name(), QStringLiteral("b.dat"));
        typeName(shown, QStringLiteral(u"half \u6e2c"));
        QCOMPARE(dialog.name(), QStringLiteral(u"half \u6e2c"));
        QVERIFY(fileNameEdit(shown).hasFocus());
        QVERIFY(dialog.setName(QStringLiteral("a.dat")));
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("a.dat"));
        QCOMPARE(dialog.name(), QStringLiteral("a.dat"));
        pressReturn(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("a.dat")));
    QCOMPARE(dialog.name(), QStringLiteral("a.dat"));
}

void tst_FileDialogObject::nameReplacesTheSelection()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(FOS_ALLOWMULTISELECT));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("select, set", isListSorted, [&dialog](QFileDialog& shown) {
        selectInList(shown, QStringLiteral("b.dat"));
        QCOMPARE(dialog.name(), QStringLiteral("b.dat"));
        QVERIFY(dialog.setName(QStringLiteral("a.dat")));
        QCOMPARE(dialog.name(), QStringLiteral("a.dat"));
        shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.results(), QStringList{m_folders->path(QStringLiteral("a.dat"))});
}

void tst_FileDialogObject::preselectedName_data()
{
    QTest::addColumn<Class>("kind");
    QTest::addColumn<QString>("name"); // %1 is the folder
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain") << Class::Open << "a.dat"
                           << "a.dat";
    QTest::newRow("relative folder") << Class::Open << "deeper/d.dat"
                                     << "deeper/d.dat";
    QTest::newRow("up and down") << Class::Open << "deeper/../b.dat"
                                 << "b.dat";
    QTest::newRow("absolute path") << Class::Open << "%1/deeper/d.dat"
                                   << "deeper/d.dat";
    QTest::newRow("new") << Class::Save << "new.dat"
                         << "new.dat";
    QTest::newRow("new in a relative folder") << Class::Save << "deeper/new.dat"
                                              << "deeper/new.dat";
    QTest::newRow("new with an absolute path") << Class::Save << "%1/deeper/new.dat"
                                               << "deeper/new.dat";
    QTest::newRow("blanks") << Class::Save << " my  run "
                            << " my  run ";
    QTest::newRow("non-ASCII") << Class::Save << QStringLiteral(u"\u6e2c\u5b9a.\u00e4")
                               << QStringLiteral(u"\u6e2c\u5b9a.\u00e4");
}

void tst_FileDialogObject::preselectedName()
{
    QFETCH(Class, kind);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const auto dialog = makeDialogOf(kind);
    QVERIFY(dialog->setFolder(m_folders->path()));
    QVERIFY(dialog->setName(name.contains(QLatin1String("%1")) ? name.arg(m_folders->path()) : name));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(QDir::cleanPath(dialog->result()), m_folders->path(expected));
}

void tst_FileDialogObject::preselectedNames()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(FOS_ALLOWMULTISELECT));
    QVERIFY(dialog.setName(QStringLiteral("\"a.dat\" \"c.csv\" ")));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("accept", isListSorted, [](QFileDialog& shown) {
        auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        QCOMPARE(tree->selectionModel()->selectedRows().size(), 2);
        pressReturn(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.results(),
             (QStringList{m_folders->path(QStringLiteral("a.dat")), m_folders->path(QStringLiteral("c.csv"))}));
}

void tst_FileDialogObject::namesWithQuotes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one") << "5\" disk.dat";
    QTest::newRow("two") << "the \"best\" run.dat";
    QTest::newRow("at the end") << "run\"";
    QTest::newRow("apostrophe") << "it's.dat";
    QTest::newRow("backslash") << "a\\b.dat";
}

void tst_FileDialogObject::namesWithQuotes()
{
    QFETCH(QString, name);
    for (const Class kind : {Class::Save, Class::Open}) {
        const auto dialog = makeDialogOf(kind);
        QVERIFY(dialog->setFolder(m_folders->path()));
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), m_folders->path(name));
        QCOMPARE(dialog->name(), name);
        m_folders->addFile(name); // so that the open dialog can accept it
    }
}

void tst_FileDialogObject::nameWithQuoteIsNotOverwrittenUnasked()
{
    const QString name = QStringLiteral("5\" disk.dat");
    m_folders->addFile(name);
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setName(name));
    DialogDriver driver;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
        driver.onDialog<QMessageBox>("answer", [&name, answer](QMessageBox& box) {
            QVERIFY(box.text().contains(name));
            box.button(answer)->click();
        });
    }
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(name));
    QCOMPARE(dialog.sink().events, openedAndAccepted);
}

void tst_FileDialogObject::defaultExtension()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QCOMPARE(dialog->SetDefaultExtension(L"dat"), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new")); });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("new.dat")));
}

// Kinds of dialogs

void tst_FileDialogObject::several()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(FOS_ALLOWMULTISELECT));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("select, accept", isListSorted, [&dialog](QFileDialog& shown) {
        selectInList(shown, QStringLiteral("a.dat"));
        auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        const QModelIndex next = tree->indexBelow(tree->currentIndex());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier, tree->visualRect(next).center());
        QCOMPARE(dialog.name(), QStringLiteral("\"a.dat\" \"b.dat\""));
        shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QVERIFY(driver.finished());
    QCOMPARE(dialog.results(),
             (QStringList{m_folders->path(QStringLiteral("a.dat")), m_folders->path(QStringLiteral("b.dat"))}));
    IShellItem* item = nullptr;
    QVERIFY(FAILED(dialog->GetResult(&item)));

    driver.onDialogWhen<QFileDialog>("one", isListSorted,
                                     [](QFileDialog& shown) { acceptName(shown, QStringLiteral("c.csv")); });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("c.csv")));
    QCOMPARE(dialog.results(), QStringList{m_folders->path(QStringLiteral("c.csv"))});
}

void tst_FileDialogObject::severalForSaving()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(FOS_ALLOWMULTISELECT | FOS_FILEMUSTEXIST));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        QCOMPARE(shown.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(shown.fileMode(), QFileDialog::ExistingFiles);
        acceptName(shown, QStringLiteral("a.dat"));
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("a.dat")));
}

void tst_FileDialogObject::folders()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(FOS_PICKFOLDERS));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>(
        "accept", [](QFileDialog& shown) { return listedNames(shown) == QStringList{"deeper"}; },
        [](QFileDialog& shown) { acceptName(shown, QStringLiteral("deeper")); });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("deeper")));
    QCOMPARE(dialog.results(), QStringList{m_folders->path(QStringLiteral("deeper"))});
}

void tst_FileDialogObject::missingFile()
{
    for (const bool mustExist : {true, false}) {
        const BuiltInDialog dialog;
        QVERIFY(dialog.setFolder(m_folders->path()));
        QVERIFY(dialog.setOptions(0, mustExist ? 0 : FOS_FILEMUSTEXIST));
        DialogDriver driver;
        driver.onDialog<QFileDialog>("missing",
                                     [](QFileDialog& shown) { acceptName(shown, QStringLiteral("missing")); });
        if (mustExist) {
            driver.onDialog<QMessageBox>("warned", [](QMessageBox& box) { box.accept(); });
            driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { cancel(shown); });
        }
        QCOMPARE(dialog.show(m_window.get()), mustExist ? cancelledResult : S_OK);
        QCOMPARE(dialog.result(), mustExist ? QString() : m_folders->path(QStringLiteral("missing")));
    }
}

void tst_FileDialogObject::overwriting_data()
{
    QTest::addColumn<bool>("prompt");
    QTest::newRow("with a question") << true;
    QTest::newRow("without") << false;
}

void tst_FileDialogObject::overwriting()
{
    QFETCH(bool, prompt);
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setOptions(0, prompt ? 0 : FOS_OVERWRITEPROMPT));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    if (prompt) {
        driver.onDialog<QMessageBox>("yes", [&dialog](QMessageBox& box) {
            QCOMPARE(dialog.sink().events, opened); // OnFileOk() comes later
            box.button(QMessageBox::Yes)->click();
        });
    }
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("a.dat")));
}

void tst_FileDialogObject::overwritingRefused()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    driver.onDialog<QFileDialog>("another", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new.dat")); });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("new.dat")));
    QCOMPARE(dialog.sink().events, openedAndAccepted);
}

void tst_FileDialogObject::secondShow()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    dialog->SetTitle(L"Title");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) {
        pickFilter(shown, 2);
        acceptName(shown, QStringLiteral("c.csv"));
    });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), m_folders->path(QStringLiteral("c.csv")));
    QCOMPARE(dialog.typeIndex(), 3);

    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Title"));
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 2);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("c.csv"));
        cancel(shown);
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
    QCOMPARE(dialog.result(), QString()); // not the result of the first run
    QCOMPARE(dialog.results(), QStringList());
    QCOMPARE(dialog.sink().events, (QStringList{"folder", "type", "ok", "folder"}));
}

void tst_FileDialogObject::titleAndLabels()
{
    const BuiltInDialog dialog;
    QCOMPARE(dialog->SetTitle(L"\u6e2c"), S_OK);
    QCOMPARE(dialog->SetOkButtonLabel(L"&Read"), S_OK);
    QCOMPARE(dialog->SetFileNameLabel(L"&Run:"), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&dialog](QFileDialog& shown) {
        const auto* accept = shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
        QCOMPARE(shown.windowTitle(), QStringLiteral(u"\u6e2c"));
        QCOMPARE(accept->text(), QStringLiteral("&Read"));
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("&Run:"));
        dialog->SetTitle(L"other");
        dialog->SetOkButtonLabel(L"Other");
        QCOMPARE(shown.windowTitle(), QStringLiteral("other"));
        QCOMPARE(accept->text(), QStringLiteral("Other"));
        dialog->SetOkButtonLabel(L"");
        QCOMPARE(accept->text(), QStringLiteral("&Open"));
        dialog->SetFileNameLabel(L"&Other:");
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("&Other:"));
        dialog->SetFileNameLabel(L"");
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("File &name:"));
        cancel(shown);
    });
    dialog.show(m_window.get());
}

void tst_FileDialogObject::refusedNameWithAQuote_data()
{
    QTest::addColumn<QStringList>("names"); // the last name is accepted
    QTest::newRow("then a plain name") << QStringList{"5\" disk.dat", "new.dat"};
    QTest::newRow("then another one") << QStringList{"5\" disk.dat", "3\" disk.dat"};
    QTest::newRow("then the same") << QStringList{"5\" disk.dat", "5\" disk.dat"};
    QTest::newRow("twice, then a plain name") << QStringList{"5\" disk.dat", "3\" disk.dat", "new.dat"};
    QTest::newRow("after a plain name") << QStringList{"new.dat", "5\" disk.dat"};
}

void tst_FileDialogObject::refusedNameWithAQuote()
{
    QFETCH(QStringList, names);
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    QStringList chosen;
    dialog.sink().whenTold = [&](const QString& event) {
        if (event != QLatin1String("ok"))
            return S_OK;
        chosen += dialog.result();
        return chosen.size() < names.size() ? HRESULT(S_FALSE) : S_OK;
    };
    DialogDriver driver;
    QStringList paths;
    for (const QString& name : names) {
        driver.onDialog<QFileDialog>(name, [name](QFileDialog& shown) { acceptName(shown, name); });
        paths += m_folders->path(name);
    }
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(chosen, paths);
    QCOMPARE(dialog.result(), paths.last());
}

/// Each run uses the settings at its start and nothing of an earlier run.
void tst_FileDialogObject::switchesBetweenRuns()
{
    const BuiltInDialog dialog(CLSID_FileSaveDialog);
    QVERIFY(dialog.setFolder(m_folders->path()));
    DialogDriver driver;
    for (const bool prompt : {false, true, false}) {
        QVERIFY(dialog.setOptions(prompt ? FOS_OVERWRITEPROMPT : 0, prompt ? 0 : FOS_OVERWRITEPROMPT));
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
        if (prompt)
            driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QCOMPARE(dialog.show(m_window.get()), S_OK);
        QVERIFY(driver.finished());
    }
    for (const bool extension : {true, false}) {
        QCOMPARE(dialog->SetDefaultExtension(extension ? L"dat" : L""), S_OK);
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new")); });
        QCOMPARE(dialog.show(m_window.get()), S_OK);
        QCOMPARE(dialog.result(), m_folders->path(extension ? QStringLiteral("new.dat") : QStringLiteral("new")));
    }
}

void tst_FileDialogObject::typedPatternInEachRun()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setFolder(m_folders->path()));
    QVERIFY(dialog.setTypes(types));
    const QStringList ofTheType{"a.dat", "b.dat", "deeper"};
    DialogDriver driver;
    for (int run = 0; run < 2; ++run) {
        driver.onDialogWhen<QFileDialog>(
            "list of the type", [&](QFileDialog& shown) { return listedNames(shown) == ofTheType; },
            [](QFileDialog& shown) {
                acceptName(shown, QStringLiteral("*.csv"));
                QCOMPARE(fileNameEdit(shown).selectedText(),
                         QStringLiteral("*.csv")); // selected, so that the user can type over it
            });
        driver.onDialogWhen<QFileDialog>(
            "list of the pattern",
            [](QFileDialog& shown) {
                return listedNames(shown) == QStringList{"c.csv", "deeper"};
            },
            [](QFileDialog& shown) { cancel(shown); });
        QCOMPARE(dialog.show(m_window.get()), cancelledResult);
        QVERIFY(driver.finished());
        QVERIFY(dialog.setName({})); // otherwise the next run would start with the pattern
    }
}

UI_TEST_MAIN(tst_FileDialogObject)
#include "tst_FileDialogObject.moc"
