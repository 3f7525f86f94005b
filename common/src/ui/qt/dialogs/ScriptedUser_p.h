#pragma once

#include "internal_export_p.h"

#include <QString>

#include <optional>

class QExtendedFileDialog;
class QLineEdit;

namespace zelmar::internal {

/// An interface for an object that takes the place of the user of all file dialogs and save flows, and of the file
/// system that a save flow asks. Only the library for tests of applications has such an object. GUI thread only.
///
/// Native dialogs are replaced by registering a class object with the shell's functions. This interface covers the
/// rest: the event loop of a dialog that Qt draws, and the steps between two runs of a save flow.
class ScriptedUser
{
public:
    /// Returns the object that takes the user's place. Null outside of tests.
    COMMON_UI_QT_SEAM_EXPORT static ScriptedUser* current();
    /// Sets the object that takes the user's place. Null gives the place back to the user.
    COMMON_UI_QT_SEAM_EXPORT static void setCurrent(ScriptedUser* user);

    /// Takes the place of the event loop of QExtendedFileDialog::exec(), and returns its result. The dialog and its
    /// file-name box may have been deleted when this function returns.
    virtual int run(QExtendedFileDialog& dialog, QLineEdit& fileNameEdit) = 0;
    /// Returns whether run() is running `dialog`. The dialog then accepts names without a check and without a question.
    virtual bool isRunning(const QExtendedFileDialog& dialog) const = 0;
    /// Returns whether the native dialog object may be shown. An object that waits for a user would never return.
    virtual bool mayShow(const void* nativeDialog) = 0;

    /// The questions of a save flow: whether to replace a file, and whether to choose another location.
    enum class Question { Overwrite, ChooseAgain };
    /// Answers a question of a save flow: true for Yes, false for No, nothing if the question remains unanswered.
    virtual std::optional<bool> answer(Question question, const QString& caption, const QString& text) = 0;
    /// Returns whether a file of this name exists, or nothing if the file system decides.
    virtual std::optional<bool> exists(const QString& name) const = 0;
    /// Returns whether a file of this name can be written, or nothing if the file system decides.
    virtual std::optional<bool> canBeWritten(const QString& name) const = 0;

protected:
    ScriptedUser() = default;
    ~ScriptedUser() = default;
    Q_DISABLE_COPY(ScriptedUser)
};

} // namespace zelmar::internal
