#pragma once

#include "testing/FileDialogScript.h"
#include "testing/ScriptStep_p.h"
#include "testing/ScriptedDialog_p.h"
#include "testing/native/ScriptedDialogClasses_p.h"
#include "ui/qt/dialogs/ScriptedUser_p.h"

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace zelmar::testing {

/// The private state of a script, and the user that it plays. A dialog that is being played holds a reference, because
/// the application may destroy the script meanwhile.
class FileDialogScript::Impl : public std::enable_shared_from_this<Impl>,
                               public internal::ScriptedUser,
                               public internal::ScriptPlayer
{
public:
    Impl();
    virtual ~Impl() = default;
    Q_DISABLE_COPY(Impl)

    void add(internal::ScriptStep step) { m_steps.push_back(std::move(step)); }
    /// Gives the user's place back to the script that had it before, or to the user.
    void end();
    QString takeFailures();
    bool isUnwinding() const;

    int run(QExtendedFileDialog& dialog, QLineEdit& fileNameEdit) override;
    bool isRunning(const QExtendedFileDialog& dialog) const override;
    bool mayShow(const void* nativeDialog) override;
    std::optional<bool> answer(Question question, const QString& caption, const QString& text) override;
    std::optional<bool> exists(const QString& name) const override;
    std::optional<bool> canBeWritten(const QString& name) const override;
    void play(internal::ScriptedDialog& dialog) override;

    std::deque<ShownFileDialog> dialogs;
    std::deque<ShownQuestion> questions;
    bool usesFileSystem = false;

private:
    struct Stage;
    static Stage& stage();
    static void putLastScriptInForce();

    QString perform(const internal::ScriptStep& step, internal::ScriptedDialog& dialog) const;
    QString accept(const internal::ScriptStep& step, internal::ScriptedDialog& dialog) const;
    QString operate(const internal::ScriptStep& step, internal::ScriptedDialog& dialog) const;
    bool nextIs(internal::ScriptStep::Kind kind) const;
    internal::ScriptStep takeStep();
    void skipAfter(const internal::ScriptStep& failed);
    void fail(const QString& text) { m_failures += text; }

    const internal::ScriptedDialogClasses m_classes;
    const int m_exceptions; ///< how many exceptions were being thrown when the script was created
    std::deque<internal::ScriptStep> m_steps;
    QStringList m_failures;
    bool m_ended = false;
};

} // namespace zelmar::testing
