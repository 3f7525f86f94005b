#pragma once

#include "ui/qt/dialogs/ScriptedUser_p.h"

#include <QPointer>

#include <optional>
#include <string>

class QObject;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

namespace zelmar::internal {

class SaveDialogInterface;

/// The steps of one round of a save flow: the user chooses a name, and the name is examined.
///
/// Every function that a step calls may delete the dialog or the flow, and with the flow the handler and the caption.
/// An object of this class is therefore on the stack and checks after each call whether both still exist. If not, it
/// closes an open question and gives up. It also gives up when the dialog cannot go on, and when the application quits.
class SaveRound
{
public:
    /// The outcome of a round. ChooseAgain means that another round follows.
    enum class Outcome { Accepted, GivenUp, ChooseAgain };

    /// Keeps references to all arguments. `caption` (UTF-8) is the title of the questions. `flowLife` is destroyed
    /// together with the flow.
    SaveRound(SaveDialogInterface& dialog, SaveFileMessageHandlerInterface& handler, const std::string& caption,
              const QObject& flowLife);

    /// Shows the dialog. Returns the first selected file with the default extension (UTF-8), or nothing if the user
    /// gives up. If a name is returned, the flow still exists.
    std::optional<std::string> chooseName() const;

    /// Asks before an existing file is replaced, unless the dialog has done so, and checks that the file can be
    /// written. If it cannot, asks whether to choose again. If another outcome than GivenUp is returned, the flow still
    /// exists. `name` must not be a member of the flow, because the handler may delete the flow and use the name
    /// afterwards.
    Outcome examine(const std::string& name) const;

private:
    /// The answer to one question. None means that the question was closed, because its parent or the flow was
    /// destroyed or the application quits, or that the script of a test has no answer.
    enum class Answer { Yes, No, None };

    Outcome examine(const std::string& name, const std::string& nameToCheck) const;
    Outcome chooseAgainIfYes(const std::string& question) const;
    Answer ask(ScriptedUser::Question kind, const std::string& question) const;
    Answer askUser(const std::string& question) const;
    bool canGoOn() const;

    const QPointer<const QObject> m_flowLife;   ///< if null, the references to handler and caption are dangling
    const QPointer<const QObject> m_dialogLife; ///< if null, the reference to the dialog is dangling
    SaveDialogInterface& m_dialog;
    SaveFileMessageHandlerInterface& m_handler;
    const std::string& m_caption;
};

} // namespace zelmar::internal
