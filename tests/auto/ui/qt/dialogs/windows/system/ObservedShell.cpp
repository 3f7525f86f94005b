#include "ObservedShell.h"

#include "ui/qt/dialogs/windows/com/RefCounted_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <QDir>

using namespace zelmar::internal;

/// A front object that forwards every call to the system's dialog. It has its own reference count and records
/// cookies.
class ObservedShell::Front : public RefCounted<IFileOpenDialog>
{
public:
    Front(ObservedShell& shell, ComPtr<IFileDialog> dialog)
        : m_shell(shell)
        , m_dialog(dialog.detach())
    {
        ++m_shell.made;
        m_shell.m_dialog = this;
    }
    ~Front() override
    {
        ++m_shell.gone;
        m_shell.m_dialog = nullptr;
        m_shell.systemReferences += m_dialog->Release();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid != IID_IFileDialog && iid != IID_IFileOpenDialog)
            return m_dialog->QueryInterface(iid, object);
        *object = nullptr;
        if (!queryFor<IUnknown>(iid, m_dialog))
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IFileOpenDialog*>(this);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) override
    {
        const HRESULT result = m_dialog->Advise(events, cookie);
        if (SUCCEEDED(result)) {
            m_shell.advised.push_back(*cookie);
            m_shell.m_advised.emplace_back(events);
        }
        return result;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override
    {
        m_shell.unadvised.push_back(cookie);
        return m_dialog->Unadvise(cookie);
    }

    HRESULT STDMETHODCALLTYPE Show(HWND owner) override { return m_dialog->Show(owner); }
    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override
    {
        return m_dialog->SetFileTypes(count, types);
    }
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override { return m_dialog->SetFileTypeIndex(index); }
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override { return m_dialog->GetFileTypeIndex(index); }
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override
    {
        return m_dialog->SetOptions(options);
    }
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override
    {
        return m_dialog->GetOptions(options);
    }
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem* item) override { return m_dialog->SetDefaultFolder(item); }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* item) override { return m_dialog->SetFolder(item); }
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** item) override { return m_dialog->GetFolder(item); }
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem** item) override
    {
        return m_dialog->GetCurrentSelection(item);
    }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override { return m_dialog->SetFileName(name); }
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) override { return m_dialog->GetFileName(name); }
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override { return m_dialog->SetTitle(title); }
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR label) override { return m_dialog->SetOkButtonLabel(label); }
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR label) override { return m_dialog->SetFileNameLabel(label); }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override { return m_dialog->GetResult(item); }
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem* item, FDAP place) override
    {
        return m_dialog->AddPlace(item, place);
    }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR text) override { return m_dialog->SetDefaultExtension(text); }
    HRESULT STDMETHODCALLTYPE Close(HRESULT result) override { return m_dialog->Close(result); }
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID guid) override { return m_dialog->SetClientGuid(guid); }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return m_dialog->ClearClientData(); }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter* filter) override { return m_dialog->SetFilter(filter); }
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) override
    {
        return openDialog() ? openDialog()->GetResults(items) : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray** items) override
    {
        return openDialog() ? openDialog()->GetSelectedItems(items) : E_NOINTERFACE;
    }

private:
    ComPtr<IFileOpenDialog> openDialog() const { return queryFor<IFileOpenDialog>(IID_IFileOpenDialog, m_dialog); }

    ObservedShell& m_shell;
    IFileDialog* const m_dialog; // holds one reference, which the destructor releases and checks
};

ObservedShell::ObservedShell()
{
    m_openClass = makeClass(CLSID_FileOpenDialog);
    m_saveClass = makeClass(CLSID_FileSaveDialog);
}

ObservedShell::~ObservedShell() = default;

std::unique_ptr<RegisteredClass> ObservedShell::makeClass(REFCLSID classId)
{
    void* found = nullptr;
    CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &found);
    const auto systemClass = adopt(static_cast<IClassFactory*>(found));
    return std::make_unique<RegisteredClass>(classId, [this, systemClass](REFIID iid, void** object) {
        void* dialog = nullptr;
        const HRESULT result = systemClass->CreateInstance(nullptr, IID_IFileDialog, &dialog);
        if (FAILED(result))
            return result;
        const auto front = adopt<IFileDialog>(new Front(*this, adopt(static_cast<IFileDialog*>(dialog))));
        return front->QueryInterface(iid, object);
    });
}

FILEOPENDIALOGOPTIONS ObservedShell::options() const
{
    FILEOPENDIALOGOPTIONS options = 0;
    m_dialog->GetOptions(&options);
    return options;
}

QString ObservedShell::folder() const
{
    IShellItem* item = nullptr;
    m_dialog->GetFolder(&item);
    return QDir::fromNativeSeparators(fileSystemPath(adopt(item).get()).value_or(QStringLiteral("none")));
}

ULONG ObservedShell::references() const
{
    if (!m_dialog)
        return 0;
    m_dialog->AddRef();
    return m_dialog->Release();
}

ULONG ObservedShell::releaseAdvised()
{
    ULONG left = 0;
    for (ComPtr<IFileDialogEvents>& events : m_advised)
        left += events.detach()->Release();
    m_advised.clear();
    return left;
}
