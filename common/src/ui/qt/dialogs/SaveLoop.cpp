#include "ui/qt/dialogs/SaveLoop_p.h"

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"
#include "ui/qt/dialogs/rules/defaultExtension_p.h"
#include "ui/qt/dialogs/rules/fileExistence_p.h"
#include "ui/qt/dialogs/writeProbe_p.h"

#include <boost/filesystem/operations.hpp>

#include <QMessageBox>
#include <QPointer>

SaveLoopDialog::~SaveLoopDialog() = default;

SaveLoop::SaveLoop(SaveLoopDialog& dialog, zelmar::SaveFileMessageHandlerInterface& handler, const std::string& caption,
                   std::string& selectedFileName)
    : m_life(&dialog.life())
    , m_dialog(dialog)
    , m_handler(handler)
    , m_caption(caption)
    , m_selectedFileName(selectedFileName)
{
}

bool SaveLoop::run()
{
    Outcome outcome = Outcome::Again;
    while (outcome == Outcome::Again)
        outcome = runOnce();
    return outcome == Outcome::Accepted;
}

bool SaveLoop::isThere() const
{
    return m_life && m_dialog.canGoOn();
}

SaveLoop::Outcome SaveLoop::runOnce()
{
    if (!isThere() || !m_dialog.run() || !isThere())
        return Outcome::GivenUp;
    const QStringList files = m_dialog.selectedFiles();
    if (files.isEmpty()) // The dialog failed to report its selection.
        return Outcome::GivenUp;
    const std::string name = withDefaultExtension(files.first().toStdString(), m_dialog.selectedNameFilter());
    m_selectedFileName = name;
    return check(name);
}

/// `name` must not belong to the flow, because the handler may delete the flow and use the name afterwards.
SaveLoop::Outcome SaveLoop::check(const std::string& name)
{
    const std::string nameToCheck = m_handler.filenameToCheck(name);
    if (!isThere())
        return Outcome::GivenUp;
    try {
        return examine(name, nameToCheck);
    } catch (const boost::filesystem::filesystem_error& error) {
        return isThere() ? againIfYes(m_handler.systemAccessError(error.what())) : Outcome::GivenUp;
    }
}

SaveLoop::Outcome SaveLoop::examine(const std::string& name, const std::string& nameToCheck)
{
    if (countsAsExisting(fileTypeOf(nameToCheck))) {
        const Answer answer = ask(m_handler.okToOverwriteMessage());
        if (answer != Answer::Yes)
            return answer == Answer::No ? Outcome::Again : Outcome::GivenUp;
    }
    if (!canBeWritten(name)) // Compatibility: probe-of-the-selected-name
        return againIfYes(m_handler.unableToOverwriteMessage());
    return Outcome::Accepted;
}

SaveLoop::Outcome SaveLoop::againIfYes(const std::string& question) const
{
    return ask(question) == Answer::Yes ? Outcome::Again : Outcome::GivenUp;
}

SaveLoop::Answer SaveLoop::ask(const std::string& question) const
{
    if (!isThere()) // The message handler has deleted the flow while it worded the question.
        return Answer::None;
    // The box is on the heap, because the parent deletes it when it is destroyed while the question is open.
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, QString::fromStdString(m_caption), QString::fromStdString(question),
                        QMessageBox::Yes | QMessageBox::No, m_dialog.questionParent());
    box->setDefaultButton(QMessageBox::No);
    // Plain text shows a file name that contains "<" unchanged.
    box->setTextFormat(Qt::PlainText);
    QObject::connect(m_life, &QObject::destroyed, box, &QDialog::reject);
    bool answered = false; // stays false if the application quits, which ends the event loop without an answer
    QObject::connect(box, &QDialog::finished, [&answered] { answered = true; });
    const bool yes = box->exec() == QMessageBox::Yes;
    delete box;
    if (!answered || !isThere())
        return Answer::None;
    return yes ? Answer::Yes : Answer::No;
}
