#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl.h"

#include <atomic>

/// Hears of what the user does in the open native dialog, on the GUI thread within exec(), and puts it into the
/// dialog's properties and actions. What those throw passes through here.
class ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler : public IFileDialogEvents,
                                                                       public IFileDialogControlEvents
{
public:
    /// Makes a handler for `owner`, which must outlive it, and puts its one reference into `events`. E_OUTOFMEMORY when
    /// there is no memory left.
    static HRESULT create(Impl& owner, ComPointer<IFileDialogEvents>& events);

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

    Impl* const m_owner;
    std::atomic<LONG> m_refCount{1};
};
