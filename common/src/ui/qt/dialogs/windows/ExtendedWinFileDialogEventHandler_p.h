#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"

#include <atomic>

/// An event sink that updates the properties of an ExtendedWinFileDialog and runs its actions while the user works in
/// the native dialog. The dialog calls it on the GUI thread within exec(). Exceptions of observers and actions pass
/// through it.
class ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler : public IFileDialogEvents,
                                                                       public IFileDialogControlEvents
{
public:
    /// Creates a handler for `owner` and stores its only reference in `events`. Returns E_OUTOFMEMORY when memory is
    /// exhausted. The native dialog may hold the handler after `owner` has been destroyed: see forgetOwner().
    static HRESULT create(Impl& owner, ComPointer<IFileDialogEvents>& events);

    /// Makes `events`, which create() has made or which is null, ignore all further events.
    static void forgetOwner(IFileDialogEvents* events);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE OnFileOk(IFileDialog* dialog) override;
    HRESULT STDMETHODCALLTYPE OnFolderChanging(IFileDialog* dialog, IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE OnFolderChange(IFileDialog* dialog) override;
    HRESULT STDMETHODCALLTYPE OnSelectionChange(IFileDialog* dialog) override;
    HRESULT STDMETHODCALLTYPE OnShareViolation(IFileDialog* dialog, IShellItem* item,
                                               FDE_SHAREVIOLATION_RESPONSE* response) override;
    HRESULT STDMETHODCALLTYPE OnTypeChange(IFileDialog* dialog) override;
    HRESULT STDMETHODCALLTYPE OnOverwrite(IFileDialog* dialog, IShellItem* item,
                                          FDE_OVERWRITE_RESPONSE* response) override;

    virtual ~ExtendedWinFileDialogEventHandler();

    HRESULT STDMETHODCALLTYPE OnItemSelected(IFileDialogCustomize* dialog, DWORD control, DWORD item) override;
    HRESULT STDMETHODCALLTYPE OnButtonClicked(IFileDialogCustomize* dialog, DWORD control) override;
    HRESULT STDMETHODCALLTYPE OnCheckButtonToggled(IFileDialogCustomize* dialog, DWORD control, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE OnControlActivating(IFileDialogCustomize* dialog, DWORD control) override;

private:
    explicit ExtendedWinFileDialogEventHandler(Impl& owner);

    void replaceExtension(IFileDialog& dialog) const;

    Impl* m_owner; // null after forgetOwner()
    std::atomic<LONG> m_refCount{1};
};
