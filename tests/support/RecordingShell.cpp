#include "RecordingShell.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <QDir>

using namespace zelmar::internal;

namespace {

QString pathOf(IShellItem* item)
{
    return QDir::fromNativeSeparators(fileSystemPath(item).value_or(QStringLiteral("nothing")));
}

/// A base class that counts the existing objects.
template <typename... Interfaces>
class Counted : public RefCounted<Interfaces...>
{
public:
    explicit Counted(RecordingShell& shell)
        : m_shell(shell)
    {
        ++m_shell.liveObjects;
    }

protected:
    ~Counted() override { --m_shell.liveObjects; }

    template <typename Interface>
    HRESULT answer(Interface* found, void** object)
    {
        *object = nullptr;
        if (FAILED(m_shell.step()))
            return m_shell.failure;
        found->AddRef();
        *object = found;
        return S_OK;
    }

    RecordingShell& m_shell;
};

class RecordingItem : public Counted<IShellItem>
{
public:
    RecordingItem(RecordingShell& shell, const QString& path)
        : Counted(shell)
        , m_path(path)
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetParent(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN kind, LPWSTR* name) override
    {
        *name = nullptr;
        const HRESULT result = m_shell.step(kind == SIGDN_FILESYSPATH ? "GetDisplayName" : "GetDisplayName of a kind");
        if (SUCCEEDED(result))
            *name = makeCoTaskMemString(m_path).release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Compare(IShellItem*, SICHINTF, int*) override { return E_NOTIMPL; }

private:
    QString m_path;
};

class RecordingItems : public Counted<IShellItemArray>
{
public:
    using Counted::Counted;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyStore(GETPROPERTYSTOREFLAGS, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyDescriptionList(REFPROPERTYKEY, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SIATTRIBFLAGS, SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCount(DWORD* count) override
    {
        const HRESULT result = m_shell.step("GetCount");
        if (SUCCEEDED(result))
            *count = static_cast<DWORD>(m_shell.results.size());
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem** item) override
    {
        *item = nullptr;
        const HRESULT result = m_shell.step(QStringLiteral("GetItemAt %1").arg(index));
        if (SUCCEEDED(result))
            *item = new RecordingItem(m_shell, m_shell.results.at(static_cast<int>(index)));
        return result;
    }
    HRESULT STDMETHODCALLTYPE EnumItems(IEnumShellItems**) override { return E_NOTIMPL; }
};

class RecordingDialog : public Counted<IFileOpenDialog, IFileDialogCustomize>
{
public:
    RecordingDialog(RecordingShell& shell, bool forOpening)
        : Counted(shell)
        , m_forOpening(forOpening)
    {
        m_shell.dialog = this;
    }
    ~RecordingDialog() override
    {
        m_shell.dialog = nullptr;
        m_shell.events.reset();
        if (m_shell.onDialogGone)
            m_shell.onDialogGone();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IID_IFileDialog || iid == IID_IUnknown)
            return answer(static_cast<IFileDialog*>(this), object);
        if (iid == IID_IFileDialogCustomize)
            return answer(static_cast<IFileDialogCustomize*>(this), object);
        if (iid == IID_IFileOpenDialog && m_forOpening)
            return answer(static_cast<IFileOpenDialog*>(this), object);
        *object = nullptr;
        return E_NOINTERFACE;
    }

    HRESULT STDMETHODCALLTYPE Show(HWND owner) override
    {
        const HRESULT result = m_shell.step(QStringLiteral("Show %1").arg(reinterpret_cast<quintptr>(owner)));
        if (FAILED(result))
            return result;
        if (m_shell.onShow)
            m_shell.onShow();
        return m_shell.showResult;
    }

    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override
    {
        QString call = QStringLiteral("SetFileTypes");
        for (UINT i = 0; i < count; ++i)
            call += QStringLiteral(" [%1|%2]").arg(textOf(types[i].pszName), textOf(types[i].pszSpec));
        return m_shell.step(call);
    }
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override
    {
        return m_shell.step(QStringLiteral("SetFileTypeIndex %1").arg(index));
    }
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override
    {
        const HRESULT result = m_shell.step("GetFileTypeIndex");
        if (SUCCEEDED(result))
            *index = m_shell.fileType;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) override
    {
        const HRESULT result = m_shell.step("Advise");
        if (FAILED(result))
            return result;
        m_shell.events = events;
        *cookie = ++m_lastCookie;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override
    {
        m_shell.events.reset();
        return m_shell.step(cookie == m_lastCookie ? "Unadvise" : "Unadvise somebody else");
    }
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override
    {
        const HRESULT result = m_shell.step("SetOptions");
        if (SUCCEEDED(result))
            m_shell.options = options;
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override
    {
        const HRESULT result = m_shell.step("GetOptions");
        if (SUCCEEDED(result))
            *options = m_shell.options;
        return result;
    }
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem*) override { return unexpected("SetDefaultFolder"); }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) override
    {
        return m_shell.step("SetFolder " + pathOf(folder));
    }
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** folder) override
    {
        *folder = nullptr;
        const HRESULT result = m_shell.folder.isNull() ? E_FAIL : m_shell.step("GetFolder");
        if (SUCCEEDED(result))
            *folder = new RecordingItem(m_shell, m_shell.folder);
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem**) override { return unexpected("GetCurrentSelection"); }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override { return m_shell.step("SetFileName " + textOf(name)); }
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) override
    {
        *name = nullptr;
        const HRESULT result = m_shell.fileName.isNull() ? E_FAIL : m_shell.step("GetFileName");
        if (SUCCEEDED(result))
            *name = makeCoTaskMemString(m_shell.fileName).release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override { return m_shell.step("SetTitle " + textOf(title)); }
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR) override { return unexpected("SetOkButtonLabel"); }
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR) override { return unexpected("SetFileNameLabel"); }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override
    {
        *item = nullptr;
        const HRESULT result = m_shell.results.size() == 1 ? m_shell.step("GetResult") : E_UNEXPECTED;
        if (SUCCEEDED(result))
            *item = new RecordingItem(m_shell, m_shell.results.first());
        return result;
    }
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem*, FDAP) override { return unexpected("AddPlace"); }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR) override { return unexpected("SetDefaultExtension"); }
    HRESULT STDMETHODCALLTYPE Close(HRESULT result) override
    {
        m_shell.showResult = result;
        return m_shell.step(QStringLiteral("Close %1").arg(result));
    }
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID) override { return unexpected("SetClientGuid"); }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return unexpected("ClearClientData"); }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter*) override { return unexpected("SetFilter"); }
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) override
    {
        *items = nullptr;
        const HRESULT result = m_shell.step("GetResults");
        if (SUCCEEDED(result))
            *items = new RecordingItems(m_shell);
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray**) override { return unexpected("GetSelectedItems"); }

    HRESULT STDMETHODCALLTYPE EnableOpenDropDown(DWORD control) override
    {
        return addState(control, 0, QStringLiteral("EnableOpenDropDown %1").arg(control));
    }
    HRESULT STDMETHODCALLTYPE AddMenu(DWORD, LPCWSTR) override { return unexpected("AddMenu"); }
    HRESULT STDMETHODCALLTYPE AddPushButton(DWORD control, LPCWSTR label) override
    {
        return addState(control, 0, QStringLiteral("AddPushButton %1 %2").arg(control).arg(textOf(label)));
    }
    HRESULT STDMETHODCALLTYPE AddComboBox(DWORD) override { return unexpected("AddComboBox"); }
    HRESULT STDMETHODCALLTYPE AddRadioButtonList(DWORD) override { return unexpected("AddRadioButtonList"); }
    HRESULT STDMETHODCALLTYPE AddCheckButton(DWORD control, LPCWSTR label, BOOL checked) override
    {
        return addState(control, 0,
                        QStringLiteral("AddCheckButton %1 %2 %3").arg(control).arg(textOf(label)).arg(checked));
    }
    HRESULT STDMETHODCALLTYPE AddEditBox(DWORD, LPCWSTR) override { return unexpected("AddEditBox"); }
    HRESULT STDMETHODCALLTYPE AddSeparator(DWORD) override { return unexpected("AddSeparator"); }
    HRESULT STDMETHODCALLTYPE AddText(DWORD, LPCWSTR) override { return unexpected("AddText"); }
    HRESULT STDMETHODCALLTYPE SetControlLabel(DWORD, LPCWSTR) override { return unexpected("SetControlLabel"); }
    HRESULT STDMETHODCALLTYPE GetControlState(DWORD control, CDCONTROLSTATEF* state) override
    {
        return getState(control, 0, state, QStringLiteral("GetControlState %1").arg(control));
    }
    HRESULT STDMETHODCALLTYPE SetControlState(DWORD control, CDCONTROLSTATEF state) override
    {
        return setState(control, 0, state, QStringLiteral("SetControlState %1 %2").arg(control).arg(int(state)));
    }
    HRESULT STDMETHODCALLTYPE GetEditBoxText(DWORD, WCHAR**) override { return unexpected("GetEditBoxText"); }
    HRESULT STDMETHODCALLTYPE SetEditBoxText(DWORD, LPCWSTR) override { return unexpected("SetEditBoxText"); }
    HRESULT STDMETHODCALLTYPE GetCheckButtonState(DWORD, BOOL*) override { return unexpected("GetCheckButtonState"); }
    HRESULT STDMETHODCALLTYPE SetCheckButtonState(DWORD, BOOL) override { return unexpected("SetCheckButtonState"); }
    HRESULT STDMETHODCALLTYPE AddControlItem(DWORD control, DWORD item, LPCWSTR label) override
    {
        return addState(control, item,
                        QStringLiteral("AddControlItem %1 %2 %3").arg(control).arg(item).arg(textOf(label)));
    }
    HRESULT STDMETHODCALLTYPE RemoveControlItem(DWORD control, DWORD item) override
    {
        return m_shell.step(QStringLiteral("RemoveControlItem %1 %2").arg(control).arg(item));
    }
    HRESULT STDMETHODCALLTYPE RemoveAllControlItems(DWORD) override { return unexpected("RemoveAllControlItems"); }
    HRESULT STDMETHODCALLTYPE GetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF* state) override
    {
        return getState(control, item, state, QStringLiteral("GetControlItemState %1 %2").arg(control).arg(item));
    }
    HRESULT STDMETHODCALLTYPE SetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF state) override
    {
        return setState(control, item, state,
                        QStringLiteral("SetControlItemState %1 %2 %3").arg(control).arg(item).arg(int(state)));
    }
    HRESULT STDMETHODCALLTYPE GetSelectedControlItem(DWORD control, DWORD* item) override
    {
        const HRESULT result = m_shell.step(QStringLiteral("GetSelectedControlItem %1").arg(control));
        if (FAILED(result) || !m_shell.selectedItem)
            return E_FAIL;
        *item = *m_shell.selectedItem;
        return result;
    }
    HRESULT STDMETHODCALLTYPE SetSelectedControlItem(DWORD, DWORD) override
    {
        return unexpected("SetSelectedControlItem");
    }
    HRESULT STDMETHODCALLTYPE StartVisualGroup(DWORD, LPCWSTR) override { return unexpected("StartVisualGroup"); }
    HRESULT STDMETHODCALLTYPE EndVisualGroup() override { return unexpected("EndVisualGroup"); }
    HRESULT STDMETHODCALLTYPE MakeProminent(DWORD control) override
    {
        return m_shell.step(QStringLiteral("MakeProminent %1").arg(control));
    }
    HRESULT STDMETHODCALLTYPE SetControlItemText(DWORD, DWORD, LPCWSTR) override
    {
        return unexpected("SetControlItemText");
    }

private:
    /// Implements the operations that the library does not use.
    HRESULT unexpected(const char* call) { return m_shell.step(QStringLiteral("unexpected: ") + call); }

    HRESULT addState(DWORD control, DWORD item, const QString& call)
    {
        const HRESULT result = m_shell.step(call);
        if (SUCCEEDED(result))
            m_shell.states[{control, item}] = CDCS_ENABLEDVISIBLE;
        return result;
    }
    HRESULT getState(DWORD control, DWORD item, CDCONTROLSTATEF* state, const QString& call)
    {
        const HRESULT result = m_shell.step(call);
        if (FAILED(result) || !m_shell.states.count({control, item}))
            return E_FAIL;
        *state = static_cast<CDCONTROLSTATEF>(m_shell.states.at({control, item}));
        return result;
    }
    HRESULT setState(DWORD control, DWORD item, CDCONTROLSTATEF state, const QString& call)
    {
        const HRESULT result = m_shell.step(call);
        if (SUCCEEDED(result))
            m_shell.states[{control, item}] = static_cast<DWORD>(state);
        return result;
    }

    const bool m_forOpening;
    DWORD m_lastCookie = 40; // a cookie may be any number
};

} // namespace

RecordingShell::RecordingShell()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    m_openClass = makeClass(CLSID_FileOpenDialog);
    m_saveClass = makeClass(CLSID_FileSaveDialog);
}

RecordingShell::~RecordingShell()
{
    m_saveClass.reset();
    m_openClass.reset();
    CoUninitialize();
}

std::unique_ptr<RegisteredClass> RecordingShell::makeClass(REFCLSID classId)
{
    const bool forOpening = classId == CLSID_FileOpenDialog;
    return std::make_unique<RegisteredClass>(classId, [this, forOpening](REFIID iid, void** object) {
        const HRESULT result = step(forOpening ? "create open dialog" : "create save dialog");
        if (FAILED(result))
            return result;
        const auto dialog = adopt<IFileDialog>(new RecordingDialog(*this, forOpening));
        return dialog->QueryInterface(iid, object);
    });
}

void RecordingShell::enter(DWORD mode)
{
    CoUninitialize();
    CoInitializeEx(nullptr, mode);
}

QStringList RecordingShell::takeCalls()
{
    return std::exchange(m_calls, {});
}

HRESULT RecordingShell::step(const QString& call)
{
    if (!call.isNull())
        m_calls += call;
    return ++steps == failAt ? failure : S_OK;
}

ComPtr<IFileDialogControlEvents> RecordingShell::controlEvents() const
{
    return queryFor<IFileDialogControlEvents>(IID_IFileDialogControlEvents, events.get());
}
