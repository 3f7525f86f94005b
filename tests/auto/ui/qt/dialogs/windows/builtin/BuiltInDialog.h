#pragma once

#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

HWND windowOf(const QWidget& widget);

/// An event sink that records the events of a dialog in order: "folder", "type", "ok", "button 1", "check 2 on", "item
/// 3 10".
class RecordingSink : public zelmar::internal::RefCounted<IFileDialogEvents, IFileDialogControlEvents>
{
public:
    RecordingSink();
    ~RecordingSink() override;

    /// Returns the number of existing sinks.
    static int alive();

    QStringList events;
    /// Called with each event after it was recorded. The sink returns its result.
    std::function<HRESULT(const QString&)> whenTold;
    bool hasControlEvents = true;

    HRESULT QueryInterface(REFIID iid, void** object) override;

    HRESULT OnFileOk(IFileDialog*) override { return tell("ok"); }
    HRESULT OnFolderChanging(IFileDialog*, IShellItem*) override { return tell("folder changing"); }
    HRESULT OnFolderChange(IFileDialog*) override { return tell("folder"); }
    HRESULT OnSelectionChange(IFileDialog*) override { return tell("selection"); }
    HRESULT OnShareViolation(IFileDialog*, IShellItem*, FDE_SHAREVIOLATION_RESPONSE*) override
    {
        return tell("share violation");
    }
    HRESULT OnTypeChange(IFileDialog*) override { return tell("type"); }
    HRESULT OnOverwrite(IFileDialog*, IShellItem*, FDE_OVERWRITE_RESPONSE*) override { return tell("overwrite"); }
    HRESULT OnItemSelected(IFileDialogCustomize*, DWORD control, DWORD item) override
    {
        return tell(QStringLiteral("item %1 %2").arg(control).arg(item));
    }
    HRESULT OnButtonClicked(IFileDialogCustomize*, DWORD control) override
    {
        return tell(QStringLiteral("button %1").arg(control));
    }
    HRESULT OnCheckButtonToggled(IFileDialogCustomize*, DWORD control, BOOL checked) override
    {
        return tell(QStringLiteral("check %1 %2").arg(control).arg(checked == TRUE ? "on" : "off"));
    }
    HRESULT OnControlActivating(IFileDialogCustomize*, DWORD control) override
    {
        return tell(QStringLiteral("activating %1").arg(control));
    }

private:
    HRESULT tell(const QString& event);
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
    zelmar::internal::ComPtr<IFileDialogCustomize> m_controls;
    zelmar::internal::ComPtr<RecordingSink> m_sink;
    DWORD m_cookie = 0;
};
