#pragma once

#include "testing/ScriptedDialog_p.h"
#include "ui/qt/dialogs/windows/builtin/ControlOperations_p.h"
#include "ui/qt/dialogs/windows/builtin/EventSinks_p.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace zelmar::internal {

/// An implementation of the common file dialog whose Show() lets the script in force play the user. Sends the events
/// that the built-in dialog sends, in the same order. The files that the script chooses need not exist.
template <typename DialogInterface>
class ScriptedDialogObject : public RefCounted<DialogInterface, ControlOperations>, private ScriptedDialog
{
public:
    /// `iid` is the identifier of DialogInterface.
    ScriptedDialogObject(QFileDialog::AcceptMode mode, REFIID iid);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE Show(HWND owner) override;

    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override;
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override;
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override;
    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override;
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override;
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** folder) override;
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override;
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) override;
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override;
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override;
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem*, FDAP) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Close(HRESULT result) override;
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter*) override { return E_NOTIMPL; }

protected:
    ~ScriptedDialogObject() override;

    const QStringList& chosenFiles() const { return m_chosen; }

private:
    testing::ShownFileDialog shown() const override;
    bool isOpen() const override { return m_open; }
    void press(std::size_t button) override;
    void setTicked(std::size_t checkBox, bool on) override;
    void pick(std::size_t menuEntry) override;
    QString accept(const QStringList& files, int nameFilter) override;
    void cancel() override;

    void openDialog();
    void selectType(int type);
    void enterFolder(const QString& folder);
    void selectMenuItem();
    bool mayAccept();
    template <typename Event>
    void tell(Event event);
    template <typename Event, typename... Arguments>
    void tellOfControl(Event event, Arguments... arguments);

    const QFileDialog::AcceptMode m_mode;
    const IID m_iid;
    EventSinks m_sinks;
    QString m_title;
    FILEOPENDIALOGOPTIONS m_options;
    QStringList m_types; ///< in QFileDialog's syntax
    int m_type = 0;
    QString m_folder; ///< with slashes; empty as long as it is unknown
    QString m_fileName;
    QStringList m_chosen; ///< with slashes
    std::optional<DWORD> m_pickedItem;
    bool m_open = false;
    HRESULT m_result = S_OK; ///< the result of the run that has ended
};

class ScriptedOpenDialogObject : public ScriptedDialogObject<IFileOpenDialog>
{
public:
    ScriptedOpenDialogObject()
        : ScriptedDialogObject(QFileDialog::AcceptOpen, IID_IFileOpenDialog)
    {
    }

    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) override;
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray**) override { return E_NOTIMPL; }
};

class ScriptedSaveDialogObject : public ScriptedDialogObject<IFileSaveDialog>
{
public:
    ScriptedSaveDialogObject()
        : ScriptedDialogObject(QFileDialog::AcceptSave, IID_IFileSaveDialog)
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
