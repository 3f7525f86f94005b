#pragma once

#include "ui/qt/dialogs/windows/builtin/ControlOperations_p.h"
#include "ui/qt/dialogs/windows/builtin/EventSinks_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogListener_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogRequest_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogWindow_p.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"
#include "ui/qt/dialogs/windows/portalSeam_p.h"

#include <QStringList>

#include <exception>
#include <memory>
#include <optional>

namespace zelmar::internal {

class PortalFileDialog;

/// An implementation of the common file dialog, as IFileOpenDialog or IFileSaveDialog. Each Show() decides from what
/// was asked of the object whether a desktop portal shows the dialog; otherwise it creates a QFileDialog. GUI thread
/// only. The documentation of the interfaces leaves some behaviour open, which is as follows:
///
/// - All settings persist from one Show() to the next, which starts with the folder, the name and the type that were
///   shown last. In an open dialog, new labels, a new title, folder, name or type and changes of the controls take
///   effect at once. Options and the default extension take effect at the next Show().
/// - GetFolder() returns E_FAIL while no folder is known: before the first Show(), unless SetFolder() was called.
/// - If the type index is out of range when the dialog opens, the first type is selected. While the dialog is open,
///   setting such an index returns E_INVALIDARG.
/// - OnFileOk() is called on every sink. If any of them returns S_FALSE, the dialog stays open. The results of all
///   other operations of a sink are ignored.
/// - If a sink throws an exception, the dialog closes, and Show() throws the exception.
/// - While a portal shows the dialog, changes take effect only if it asks again. The sinks are notified when the user
///   has accepted it.
template <typename DialogInterface>
class FileDialogObject : public RefCounted<DialogInterface, ControlOperations, PortalSeam>, private FileDialogListener
{
public:
    /// `iid` is the identifier of DialogInterface.
    FileDialogObject(DialogKind kind, REFIID iid);
    ~FileDialogObject() override;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE Show(HWND owner) override;

    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override;
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override;
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override;
    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override;
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override;
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** folder) override;
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override;
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) override;
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override;
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR text) override;
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override;
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem*, FDAP) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) override;
    HRESULT STDMETHODCALLTYPE Close(HRESULT result) override;
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter*) override { return E_NOTIMPL; }

    void acceptLateEvents(DWORD cookie) override;
    void setPathCompletion(PathCompletion completion) override;
    bool hasAskedToReplace(const QString& path) const override;

protected:
    const QStringList& chosenFiles() const { return m_chosen; }

private:
    void folderChanged() noexcept override;
    void typeChanged() noexcept override;
    bool mayAccept(const QStringList& files) noexcept override;
    void buttonClicked(DWORD control) noexcept override;
    void checkButtonToggled(DWORD control, bool checked) noexcept override;
    void itemSelected(DWORD menu, DWORD item) noexcept override;

    bool isOpen() const { return m_window || m_portalDialog; }
    std::optional<bool> runInPortal(QWidget* owner);
    bool runInWindow(QWidget* owner);
    void closeAtOnce();
    template <typename Call>
    void guarded(const Call& call) noexcept;
    template <typename Event>
    void tell(Event event) noexcept;
    template <typename Event, typename... Arguments>
    void tellOfControl(Event event, Arguments... arguments) noexcept;
    template <typename Apply>
    HRESULT setText(QString FileDialogRequest::*member, LPCWSTR text, const Apply& apply);
    HRESULT resultOf(bool accepted) const;

    const IID m_iid;
    FileDialogRequest m_request;
    EventSinks m_sinks;

    std::unique_ptr<FileDialogWindow> m_window;       ///< null unless Show() is running and shows a window of its own
    std::unique_ptr<PortalFileDialog> m_portalDialog; ///< null unless Show() is running and asks a portal
    PathCompletion m_completion;
    QString m_replacedPath; ///< the file that the user has accepted in the latest dialog of a portal
    QStringList m_chosen;   ///< the files that the user has chosen in the open dialog or in the latest one
    std::optional<HRESULT> m_closeResult; ///< the result that was passed to Close() for the open dialog
    std::exception_ptr m_thrown;          ///< the exception that a sink has thrown in the open dialog
};

class FileOpenDialogObject : public FileDialogObject<IFileOpenDialog>
{
public:
    FileOpenDialogObject()
        : FileDialogObject(DialogKind::Open, IID_IFileOpenDialog)
    {
    }

    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) override;
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray**) override { return E_NOTIMPL; }
};

class FileSaveDialogObject : public FileDialogObject<IFileSaveDialog>
{
public:
    FileSaveDialogObject()
        : FileDialogObject(DialogKind::Save, IID_IFileSaveDialog)
    {
    }

    HRESULT STDMETHODCALLTYPE SetSaveAsItem(IShellItem*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperties(IPropertyStore*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetCollectedProperties(IPropertyDescriptionList*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperties(IPropertyStore**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ApplyProperties(IShellItem*, IPropertyStore*, HWND, IFileOperationProgressSink*) override
    {
        return E_NOTIMPL;
    }
};

} // namespace zelmar::internal
