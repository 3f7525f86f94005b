#pragma once

#include "RegisteredClass.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

/// Stands in for the system's file dialog: while this object is there, dialogs made by CoCreateInstance() are recording
/// ones. They write down what they are asked, answer as they are told here, and can fail at any step.
///
///     RecordingShell shell;
///     shell.onShow = [&] { shell.folder = "/data"; shell.events->OnFolderChange(shell.dialog); };
///     shell.results = {"/data/a.dat"};
///     ... // make a native dialog, and run it
///     QCOMPARE(shell.takeCalls(), expected);
///
/// Enters a single-threaded apartment of its own, so that it may be made anywhere.
class RecordingShell
{
public:
    RecordingShell();
    ~RecordingShell();
    RecordingShell(const RecordingShell&) = delete;
    RecordingShell& operator=(const RecordingShell&) = delete;

    /// What the dialogs were asked, with arguments, in order: "SetTitle Open", "AddPushButton 1 &Help". Paths have
    /// slashes. Queries for interfaces are steps, but not written down.
    QStringList takeCalls();

    /// Puts the thread into another apartment.
    void enter(DWORD mode);

    /// Counts one step. A failure, if it is the one that is to fail.
    HRESULT step(const QString& call = {});
    int steps = 0;
    int failAt = 0; ///< the number of the step that fails, from 1; 0 for none
    HRESULT failure = E_FAIL;

    /// Dialogs, items and lists of items that are still referenced.
    int liveObjects = 0;
    std::function<void()> onDialogGone; ///< called when a dialog goes with its last reference

    // What the dialogs answer.
    FILEOPENDIALOGOPTIONS options = FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST | FOS_OVERWRITEPROMPT | systemOptions;
    std::function<void()> onShow; ///< what the user does
    HRESULT showResult = S_OK;
    QStringList results; ///< the chosen paths
    QString folder;      ///< null: there is none
    UINT fileType = 1;   ///< from 1
    QString fileName;    ///< null: it cannot be read
    std::optional<DWORD> selectedItem;
    /// States of controls, by id and 0, and of menu items, by the menu's id and their own.
    std::map<std::pair<DWORD, DWORD>, DWORD> states;

    /// Bits of the options that nobody but the system sets.
    static constexpr FILEOPENDIALOGOPTIONS systemOptions = 0x10000040;

    IFileDialog* dialog = nullptr;        ///< the last one made, as long as it is there
    ComPointer<IFileDialogEvents> events; ///< who is advised; null for nobody

    /// The advised object's other side.
    ComPointer<IFileDialogControlEvents> controlEvents() const;

private:
    std::unique_ptr<RegisteredClass> makeClass(REFCLSID classId);

    QStringList m_calls;
    std::unique_ptr<RegisteredClass> m_openClass;
    std::unique_ptr<RegisteredClass> m_saveClass;
};
