#pragma once

#include "ui/qt/dialogs/windows/comPointers_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

/// A scope in the single-threaded apartment, in which the tests create objects.
class Apartment
{
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

HWND windowOf(const QWidget& widget);

/// An event sink that records the events of a dialog in order: "folder", "type", "ok", "button 1", "check 2 on", "item
/// 3 10".
class RecordingSink : public IFileDialogEvents, public IFileDialogControlEvents
{
public:
    RecordingSink();
    virtual ~RecordingSink();
    RecordingSink(const RecordingSink&) = delete;
    RecordingSink& operator=(const RecordingSink&) = delete;

    /// Returns the number of existing sinks.
    static int alive();

    QStringList events;
    /// Called with each event after it was recorded. The sink returns its result.
    std::function<HRESULT(const QString&)> whenTold;
    bool hasControlEvents = true;

    HRESULT QueryInterface(REFIID iid, void** object) override;
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override;

    HRESULT OnFileOk(IFileDialog* dialog) override;
    HRESULT OnFolderChanging(IFileDialog* dialog, IShellItem* folder) override;
    HRESULT OnFolderChange(IFileDialog* dialog) override;
    HRESULT OnSelectionChange(IFileDialog* dialog) override;
    HRESULT OnShareViolation(IFileDialog* dialog, IShellItem* item, FDE_SHAREVIOLATION_RESPONSE* response) override;
    HRESULT OnTypeChange(IFileDialog* dialog) override;
    HRESULT OnOverwrite(IFileDialog* dialog, IShellItem* item, FDE_OVERWRITE_RESPONSE* response) override;
    HRESULT OnItemSelected(IFileDialogCustomize* dialog, DWORD control, DWORD item) override;
    HRESULT OnButtonClicked(IFileDialogCustomize* dialog, DWORD control) override;
    HRESULT OnCheckButtonToggled(IFileDialogCustomize* dialog, DWORD control, BOOL checked) override;
    HRESULT OnControlActivating(IFileDialogCustomize* dialog, DWORD control) override;

private:
    HRESULT tell(const QString& event);

    ULONG m_references = 1;
};

/// A wrapper of a built-in dialog and a sink, with an interface in Qt's types.
class BuiltInDialog
{
public:
    explicit BuiltInDialog(REFCLSID classId = CLSID_FileOpenDialog);
    ~BuiltInDialog();
    BuiltInDialog(const BuiltInDialog&) = delete;
    BuiltInDialog& operator=(const BuiltInDialog&) = delete;

    /// Returns the number of dialog objects that were not destroyed together with their BuiltInDialog.
    static int leaked();

    IFileDialog* operator->() const { return m_dialog; }
    IFileDialog* get() const { return m_dialog; }
    IFileDialogCustomize& controls() const { return *m_controls; }
    RecordingSink& sink() const { return *m_sink; }
    DWORD cookie() const { return m_cookie; }
    /// Passes the reference to the caller.
    IFileDialog* detach();

    HRESULT show(const QWidget* owner = nullptr) const;
    bool setTypes(const std::vector<std::pair<QString, QString>>& types) const;
    bool setFolder(const QString& path) const;
    bool setName(const QString& name) const;
    bool setOptions(FILEOPENDIALOGOPTIONS on, FILEOPENDIALOGOPTIONS off = 0) const;

    int typeIndex() const;
    /// Returns the folder, or an empty string when there is none.
    QString folder() const;
    QString name() const;
    QString result() const;
    QStringList results() const;

    /// Returns the id of the selected item of a menu, or the HRESULT of the failure.
    qint64 selectedItem(DWORD menu) const;
    bool isChecked(DWORD box) const;

private:
    IFileDialog* m_dialog = nullptr;
    ComPointer<IFileDialogCustomize> m_controls;
    ComPointer<RecordingSink> m_sink;
    DWORD m_cookie = 0;
};

inline void intrusive_ptr_add_ref(RecordingSink* sink)
{
    sink->AddRef();
}

inline void intrusive_ptr_release(RecordingSink* sink)
{
    sink->Release();
}
