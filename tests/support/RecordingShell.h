#pragma once

#include "RegisteredClass.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

/// A replacement for the system's file dialog: during its lifetime CoCreateInstance() creates recording dialogs. They
/// record the calls, answer as configured here, and can fail at any step.
///
///     RecordingShell shell;
///     shell.onShow = [&] { shell.folder = "/data"; shell.events->OnFolderChange(shell.dialog); };
///     shell.results = {"/data/a.dat"};
///     ... // create and run a native dialog
///     QCOMPARE(shell.takeCalls(), expected);
///
/// Enters a single-threaded apartment itself, so that a test can create it anywhere.
class RecordingShell
{
public:
    RecordingShell();
    ~RecordingShell();
    RecordingShell(const RecordingShell&) = delete;
    RecordingShell& operator=(const RecordingShell&) = delete;

    /// Returns the recorded calls with their arguments in order, for example "SetTitle Open" or "AddPushButton 1
    /// &Help", and clears the record. Paths have slashes. Calls of QueryInterface() are steps, but are not recorded.
    QStringList takeCalls();

    /// Leaves the apartment and enters another one.
    void enter(DWORD mode);

    /// Counts one step. Returns a failure for the step with the number `failAt`.
    HRESULT step(const QString& call = {});
    int steps = 0;
    int failAt = 0; ///< the 1-based number of the step that fails; 0 for none
    HRESULT failure = E_FAIL;

    /// The number of dialogs, items and item arrays that are still referenced.
    int liveObjects = 0;
    std::function<void()> onDialogGone; ///< called when the last reference to a dialog is released

    // The answers of the dialogs.
    FILEOPENDIALOGOPTIONS options = FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST | FOS_OVERWRITEPROMPT | systemOptions;
    std::function<void()> onShow; ///< performs the actions of the user
    HRESULT showResult = S_OK;
    QStringList results; ///< the chosen paths
    QString folder;      ///< null if there is none
    UINT fileType = 1;   ///< 1-based index
    QString fileName;    ///< null if it cannot be read
    std::optional<DWORD> selectedItem;
    /// The states of controls with the key {id, 0} and of menu items with the key {menu id, item id}.
    std::map<std::pair<DWORD, DWORD>, DWORD> states;

    /// Option bits that only the system sets.
    static constexpr FILEOPENDIALOGOPTIONS systemOptions = 0x10000040;

    IFileDialog* dialog = nullptr;                      ///< the dialog that was created last, while it exists
    zelmar::internal::ComPtr<IFileDialogEvents> events; ///< the advised event sink, or null

    /// Returns the interface of the event sink for control events.
    zelmar::internal::ComPtr<IFileDialogControlEvents> controlEvents() const;

private:
    std::unique_ptr<RegisteredClass> makeClass(REFCLSID classId);

    QStringList m_calls;
    std::unique_ptr<RegisteredClass> m_openClass;
    std::unique_ptr<RegisteredClass> m_saveClass;
};
