#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"

/// An event sink that updates the properties of an ExtendedWinFileDialog and runs its actions while the user works in
/// the native dialog. The dialog calls it on the GUI thread within exec(). Exceptions of observers and actions pass
/// through it.
class ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler
    : public zelmar::internal::RefCounted<IFileDialogEvents, IFileDialogControlEvents>
{
public:
    /// Creates a handler for `owner` and stores its only reference in `events`. Returns E_OUTOFMEMORY when memory is
    /// exhausted. The native dialog may hold the handler after `owner` has been destroyed: see forgetOwner().
    static HRESULT create(Impl& owner, zelmar::internal::ComPtr<IFileDialogEvents>& events);

    /// Makes `events`, which create() has made or which is null, ignore all further events.
    static void forgetOwner(IFileDialogEvents* events);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;

    HRESULT STDMETHODCALLTYPE OnFileOk(IFileDialog*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnFolderChanging(IFileDialog*, IShellItem*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnFolderChange(IFileDialog* dialog) override;
    HRESULT STDMETHODCALLTYPE OnSelectionChange(IFileDialog*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnShareViolation(IFileDialog*, IShellItem*, FDE_SHAREVIOLATION_RESPONSE*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OnTypeChange(IFileDialog* dialog) override;
    /// Leaves the decision to the dialog's own question about overwriting.
    HRESULT STDMETHODCALLTYPE OnOverwrite(IFileDialog*, IShellItem*, FDE_OVERWRITE_RESPONSE*) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE OnItemSelected(IFileDialogCustomize*, DWORD, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnButtonClicked(IFileDialogCustomize* dialog, DWORD control) override;
    HRESULT STDMETHODCALLTYPE OnCheckButtonToggled(IFileDialogCustomize* dialog, DWORD control, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE OnControlActivating(IFileDialogCustomize*, DWORD) override { return E_NOTIMPL; }

private:
    explicit ExtendedWinFileDialogEventHandler(Impl& owner);

    void replaceExtension(IFileDialog& dialog) const;

    Impl* m_owner; // null after forgetOwner()
};
