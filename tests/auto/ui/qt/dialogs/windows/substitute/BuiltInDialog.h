#pragma once

#include "ui/qt/dialogs/windows/comPointers.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

/// The apartment that objects are made in.
class Apartment
{
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

HWND windowOf(const QWidget& widget);

/// Writes down, in order, what a dialog tells: "folder", "type", "ok", "button 1", "check 2 on", "item 3 10".
class RecordingSink : public IFileDialogEvents, public IFileDialogControlEvents
{
public:
    RecordingSink();
    virtual ~RecordingSink();
    RecordingSink(const RecordingSink&) = delete;
    RecordingSink& operator=(const RecordingSink&) = delete;

    /// How many there are.
    static int alive();

    QStringList events;
    /// Called with each event after it was written down; its answer is that of the sink.
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

/// A built-in dialog with a sink, in Qt's types.
class BuiltInDialog
{
public:
    explicit BuiltInDialog(REFCLSID classId = CLSID_FileOpenDialog);
    ~BuiltInDialog();
    BuiltInDialog(const BuiltInDialog&) = delete;
    BuiltInDialog& operator=(const BuiltInDialog&) = delete;

    /// How many dialogs were not destroyed with their last BuiltInDialog.
    static int leaked();

    IFileDialog* operator->() const { return m_dialog; }
    IFileDialog* get() const { return m_dialog; }
    IFileDialogCustomize& controls() const { return *m_controls; }
    RecordingSink& sink() const { return *m_sink; }
    DWORD cookie() const { return m_cookie; }
    /// Gives the reference away.
    IFileDialog* detach();

    HRESULT show(const QWidget* owner = nullptr) const;
    bool setTypes(const std::vector<std::pair<QString, QString>>& types) const;
    bool setFolder(const QString& path) const;
    bool setName(const QString& name) const;
    bool setOptions(FILEOPENDIALOGOPTIONS on, FILEOPENDIALOGOPTIONS off = 0) const;

    int typeIndex() const;
    /// Empty where there is none.
    QString folder() const;
    QString name() const;
    QString result() const;
    QStringList results() const;

    /// The item that is selected in a menu, or the failure.
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
