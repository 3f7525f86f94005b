#pragma once

#include "testing/FileDialogScript.h"

#include <cstddef>

namespace zelmar::internal {

/// An interface through which a script takes the part of the user in a running dialog of either kind. The functions
/// call the application, which may do anything meanwhile: close or delete the dialog, or open another one.
class ScriptedDialog
{
public:
    /// Returns what the dialog shows now.
    virtual testing::ShownFileDialog shown() const = 0;
    /// Returns whether the dialog still waits for its user.
    virtual bool isOpen() const = 0;

    // Controls are identified by their index in the record that shown() returns.
    virtual void press(std::size_t button) = 0;
    virtual void setTicked(std::size_t checkBox, bool on) = 0;
    virtual void pick(std::size_t menuEntry) = 0;

    /// Selects the name filter with the index `nameFilter`, or none if it is -1, and accepts `files`, which are
    /// absolute paths with slashes. Returns an empty text, or why the dialog is still open.
    virtual QString accept(const QStringList& files, int nameFilter) = 0;
    /// Closes the dialog, which then returns as cancelled.
    virtual void cancel() = 0;

protected:
    ScriptedDialog() = default;
    ~ScriptedDialog() = default;
    Q_DISABLE_COPY(ScriptedDialog)
};

/// An interface for an object that plays a dialog until it is closed.
class ScriptPlayer
{
public:
    /// Returns the script in force, or null if there is none.
    static ScriptPlayer* current();
    static void setCurrent(ScriptPlayer* player);

    virtual void play(ScriptedDialog& dialog) = 0;

protected:
    ScriptPlayer() = default;
    ~ScriptPlayer() = default;
    Q_DISABLE_COPY(ScriptPlayer)
};

/// Passes the text of a failure to the handler that FileDialogScript::setFailureHandler() has set.
void reportFailure(const QString& text);

} // namespace zelmar::internal
