#include "ui/qt/dialogs/save/SaveRound_p.h"

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"
#include "ui/qt/dialogs/files/fileExistence_p.h"
#include "ui/qt/dialogs/files/writeProbe_p.h"
#include "ui/qt/dialogs/rules/defaultExtension_p.h"
#include "ui/qt/dialogs/save/SaveDialogInterface_p.h"

#include <boost/filesystem/operations.hpp>

#include <QMessageBox>

namespace zelmar::internal {

namespace {

/// Returns what `question` of the object in the user's place returns, or nothing if there is no such object.
std::optional<bool> askScript(std::optional<bool> (ScriptedUser::*question)(const QString&) const,
                              const std::string& name)
{
    const ScriptedUser* const user = ScriptedUser::current();
    return user ? (user->*question)(QString::fromStdString(name)) : std::nullopt;
}

bool exists(const std::string& name)
{
    const std::optional<bool> scripted = askScript(&ScriptedUser::exists, name);
    return scripted ? *scripted : countsAsExisting(fileTypeOf(name));
}

bool isWritable(const std::string& name)
{
    const std::optional<bool> scripted = askScript(&ScriptedUser::canBeWritten, name);
    return scripted ? *scripted : canBeWritten(name);
}

} // namespace

SaveRound::SaveRound(SaveDialogInterface& dialog, SaveFileMessageHandlerInterface& handler, const std::string& caption,
                     const QObject& flowLife)
    : m_flowLife(&flowLife)
    , m_dialogLife(&dialog.life())
    , m_dialog(dialog)
    , m_handler(handler)
    , m_caption(caption)
{
}

bool SaveRound::canGoOn() const
{
    return m_flowLife && m_dialogLife && m_dialog.canGoOn();
}

std::optional<std::string> SaveRound::chooseName() const
{
    if (!canGoOn() || !m_dialog.run() || !canGoOn())
        return {};
    const QStringList files = m_dialog.selectedFiles();
    if (files.isEmpty()) // The dialog could not report its selection.
        return {};
    return withDefaultExtension(files.first().toStdString(), m_dialog.selectedNameFilter());
}

SaveRound::Outcome SaveRound::examine(const std::string& name) const
{
    const std::string nameToCheck = m_handler.filenameToCheck(name);
    if (!canGoOn())
        return Outcome::GivenUp;
    try {
        return examine(name, nameToCheck);
    } catch (const boost::filesystem::filesystem_error& error) {
        return canGoOn() ? chooseAgainIfYes(m_handler.systemAccessError(error.what())) : Outcome::GivenUp;
    }
}

SaveRound::Outcome SaveRound::examine(const std::string& name, const std::string& nameToCheck) const
{
    const bool alreadyAsked = nameToCheck == name && m_dialog.hasAskedToReplace(name);
    if (!alreadyAsked && exists(nameToCheck)) {
        const Answer answer = ask(ScriptedUser::Question::Overwrite, m_handler.okToOverwriteMessage());
        if (answer != Answer::Yes)
            return answer == Answer::No ? Outcome::ChooseAgain : Outcome::GivenUp;
    }
    if (!isWritable(name)) // Compatibility: probe-of-the-selected-name
        return chooseAgainIfYes(m_handler.unableToOverwriteMessage());
    return Outcome::Accepted;
}

SaveRound::Outcome SaveRound::chooseAgainIfYes(const std::string& question) const
{
    return ask(ScriptedUser::Question::ChooseAgain, question) == Answer::Yes ? Outcome::ChooseAgain : Outcome::GivenUp;
}

SaveRound::Answer SaveRound::ask(ScriptedUser::Question kind, const std::string& question) const
{
    if (!canGoOn()) // The message handler has deleted the flow while it worded the question.
        return Answer::None;
    ScriptedUser* const user = ScriptedUser::current();
    if (!user)
        return askUser(question);
    const std::optional<bool> yes =
        user->answer(kind, QString::fromStdString(m_caption), QString::fromStdString(question));
    if (!yes)
        return Answer::None;
    return *yes ? Answer::Yes : Answer::No;
}

SaveRound::Answer SaveRound::askUser(const std::string& question) const
{
    // The box is on the heap, because the parent deletes it when it is destroyed while the question is open.
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, QString::fromStdString(m_caption), QString::fromStdString(question),
                        QMessageBox::Yes | QMessageBox::No, m_dialog.questionParent());
    box->setDefaultButton(QMessageBox::No);
    // Plain text shows a file name that contains "<" unchanged.
    box->setTextFormat(Qt::PlainText);
    QObject::connect(m_flowLife, &QObject::destroyed, box, &QDialog::reject);
    bool answered = false; // Stays false if the application quits, which ends the event loop without an answer.
    QObject::connect(box, &QDialog::finished, [&answered] { answered = true; });
    const bool yes = box->exec() == QMessageBox::Yes;
    delete box;
    if (!answered || !canGoOn())
        return Answer::None;
    return yes ? Answer::Yes : Answer::No;
}

} // namespace zelmar::internal
