#include "testing/FileDialogScriptImpl_p.h"

#include "testing/DrawnScriptedDialog_p.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <exception>
#include <utility>

namespace zelmar::testing {

using internal::DrawnScriptedDialog;
using internal::ScriptedDialog;
using internal::ScriptStep;

namespace {

template <typename Element>
void remove(std::vector<Element>& elements, const Element& element)
{
    elements.erase(std::remove(elements.begin(), elements.end(), element), elements.end());
}

ShownControl::Kind controlOf(ScriptStep::Kind kind)
{
    if (kind == ScriptStep::Kind::Press)
        return ShownControl::Kind::Button;
    return kind == ScriptStep::Kind::Tick ? ShownControl::Kind::CheckBox : ShownControl::Kind::MenuEntry;
}

QStringList absolutePaths(const QStringList& files, const QString& folder)
{
    QStringList paths;
    for (const QString& file : files)
        paths += QDir::cleanPath(QDir(folder).absoluteFilePath(QDir::fromNativeSeparators(file)));
    return paths;
}

/// Returns the first of the paths at which there is no file, or no folder for QFileDialog::Directory, or an empty text.
QString missingFile(const QStringList& paths, QFileDialog::FileMode mode)
{
    const auto missing = std::find_if(paths.begin(), paths.end(), [mode](const QString& path) {
        return mode == QFileDialog::Directory ? !QFileInfo(path).isDir() : !QFileInfo::exists(path);
    });
    return missing == paths.end() ? QString() : *missing;
}

} // namespace

/// The scripts that exist, of which the last one is in force, and the Qt-drawn dialogs that any of them is playing.
struct FileDialogScript::Impl::Stage
{
    std::vector<Impl*> scripts;
    std::vector<const QExtendedFileDialog*> drawnDialogs;
};

FileDialogScript::Impl::Stage& FileDialogScript::Impl::stage()
{
    static Stage theStage;
    return theStage;
}

void FileDialogScript::Impl::putLastScriptInForce()
{
    Impl* const last = stage().scripts.empty() ? nullptr : stage().scripts.back();
    ScriptedUser::setCurrent(last);
    ScriptPlayer::setCurrent(last);
}

FileDialogScript::Impl::Impl()
    : m_exceptions(std::uncaught_exceptions())
{
    stage().scripts.push_back(this);
    putLastScriptInForce();
}

void FileDialogScript::Impl::end()
{
    m_ended = true;
    remove(stage().scripts, this);
    putLastScriptInForce();
}

bool FileDialogScript::Impl::isUnwinding() const
{
    return std::uncaught_exceptions() > m_exceptions;
}

QString FileDialogScript::Impl::takeFailures()
{
    QStringList failures = std::exchange(m_failures, {});
    QStringList left;
    for (const ScriptStep& step : std::exchange(m_steps, {}))
        left += describe(step);
    if (!left.isEmpty())
        failures +=
            QStringLiteral("The script is not used up. These steps are left:\n  ") + left.join(QStringLiteral("\n  "));
    return failures.join(QStringLiteral("\n\n"));
}

// The user

int FileDialogScript::Impl::run(QExtendedFileDialog& dialog, QLineEdit& fileNameEdit)
{
    const QExtendedFileDialog* const running = &dialog;
    stage().drawnDialogs.push_back(running);
    const auto end = qScopeGuard([running] { remove(stage().drawnDialogs, running); });
    DrawnScriptedDialog scripted(dialog, fileNameEdit);
    play(scripted);
    return scripted.result();
}

bool FileDialogScript::Impl::isRunning(const QExtendedFileDialog& dialog) const
{
    const auto& dialogs = stage().drawnDialogs;
    return std::find(dialogs.begin(), dialogs.end(), &dialog) != dialogs.end();
}

bool FileDialogScript::Impl::mayShow(const void* nativeDialog)
{
    if (internal::isScriptedDialogObject(nativeDialog))
        return true;
    fail(QStringLiteral("A native dialog was created before the script, which therefore cannot answer it."));
    return false;
}

std::optional<bool> FileDialogScript::Impl::answer(Question question, const QString& caption, const QString& text)
{
    const bool overwrite = question == Question::Overwrite;
    ShownQuestion shown;
    shown.kind = overwrite ? ShownQuestion::Kind::Overwrite : ShownQuestion::Kind::ChooseAgain;
    shown.caption = caption;
    shown.text = text;
    questions.push_back(shown);
    if (nextIs(overwrite ? ScriptStep::Kind::Overwrite : ScriptStep::Kind::Refuse))
        return takeStep().yes;
    const QString next = m_steps.empty() ? QStringLiteral("The script has no step left for a question:\n")
                                         : QStringLiteral("The next step of the script is: %1\nbut this is asked:\n")
                                               .arg(internal::describe(m_steps.front()));
    fail(next + describe(shown));
    return std::nullopt;
}

std::optional<bool> FileDialogScript::Impl::exists(const QString& /*name*/) const
{
    if (usesFileSystem)
        return std::nullopt;
    return nextIs(ScriptStep::Kind::Overwrite);
}

std::optional<bool> FileDialogScript::Impl::canBeWritten(const QString& /*name*/) const
{
    if (usesFileSystem)
        return std::nullopt;
    return !nextIs(ScriptStep::Kind::Refuse);
}

// Playing

void FileDialogScript::Impl::play(ScriptedDialog& dialog)
{
    const auto self = shared_from_this();
    dialogs.push_back(dialog.shown());
    while (dialog.isOpen() && !m_ended) {
        if (m_steps.empty()) {
            fail(QStringLiteral("The script has no step left for a dialog:\n") + describe(dialog.shown()));
            break;
        }
        const ScriptStep step = takeStep();
        const ShownFileDialog before = dialog.shown();
        const QString problem = perform(step, dialog);
        if (problem.isEmpty())
            continue;
        fail(QStringLiteral("The step failed: %1\n%2\n%3").arg(internal::describe(step), problem, describe(before)));
        skipAfter(step);
        break;
    }
    if (dialog.isOpen())
        dialog.cancel();
}

/// Returns an empty text, or why the step cannot be made.
QString FileDialogScript::Impl::perform(const ScriptStep& step, ScriptedDialog& dialog) const
{
    if (isAnswer(step))
        return QStringLiteral("It answers a question, but a dialog was opened.");
    if (step.kind == ScriptStep::Kind::Accept)
        return accept(step, dialog);
    if (step.kind != ScriptStep::Kind::Cancel)
        return operate(step, dialog);
    dialog.cancel();
    return {};
}

QString FileDialogScript::Impl::accept(const ScriptStep& step, ScriptedDialog& dialog) const
{
    const ShownFileDialog shown = dialog.shown();
    if (step.files.isEmpty() || step.files.contains(QString()))
        return QStringLiteral("A dialog cannot be accepted without a name.");
    if (step.files.size() > 1 && shown.fileMode != QFileDialog::ExistingFiles)
        return QStringLiteral("The dialog is for one file.");
    const int filter = step.text.isEmpty() ? -1 : internal::indexOfNameFilter(shown.nameFilters, step.text);
    if (!step.text.isEmpty() && filter < 0)
        return QStringLiteral("The dialog does not have this name filter.");
    const QStringList paths = absolutePaths(step.files, shown.folder);
    const QString missing =
        usesFileSystem && shown.fileMode != QFileDialog::AnyFile ? missingFile(paths, shown.fileMode) : QString();
    if (!missing.isEmpty())
        return QStringLiteral("%1 does not exist.").arg(missing);
    return dialog.accept(paths, filter);
}

/// Uses the control that the step names.
QString FileDialogScript::Impl::operate(const ScriptStep& step, ScriptedDialog& dialog) const
{
    const std::vector<ShownControl> controls = dialog.shown().controls;
    const auto found = std::find_if(controls.begin(), controls.end(), [&step](const ShownControl& control) {
        return control.kind == controlOf(step.kind)
               && (control.label == step.text || control.label == internal::shownLabel(step.text));
    });
    if (found == controls.end())
        return QStringLiteral("The dialog does not have this control.");
    if (!found->visible || !found->enabled)
        return QStringLiteral("The user cannot use this control: ") + describe(*found);
    const auto index = static_cast<std::size_t>(found - controls.begin());
    if (step.kind == ScriptStep::Kind::Press)
        dialog.press(index);
    else if (step.kind == ScriptStep::Kind::Pick)
        dialog.pick(index);
    else if (found->ticked != step.yes)
        dialog.setTicked(index, step.yes);
    return {};
}

bool FileDialogScript::Impl::nextIs(ScriptStep::Kind kind) const
{
    return !m_steps.empty() && m_steps.front().kind == kind;
}

ScriptStep FileDialogScript::Impl::takeStep()
{
    ScriptStep step = m_steps.front();
    m_steps.pop_front();
    return step;
}

/// Removes the other steps that belong to the dialog of a failed step, so that the next dialog finds its own.
void FileDialogScript::Impl::skipAfter(const ScriptStep& failed)
{
    bool ended = endsDialog(failed);
    while (!ended && !m_steps.empty())
        ended = endsDialog(takeStep());
    while (!m_steps.empty() && isAnswer(m_steps.front()))
        takeStep();
}

} // namespace zelmar::testing

namespace zelmar::internal {

namespace {

ScriptPlayer*& currentPlayer()
{
    static ScriptPlayer* player = nullptr;
    return player;
}

} // namespace

ScriptPlayer* ScriptPlayer::current()
{
    return currentPlayer();
}

void ScriptPlayer::setCurrent(ScriptPlayer* player)
{
    currentPlayer() = player;
}

} // namespace zelmar::internal
