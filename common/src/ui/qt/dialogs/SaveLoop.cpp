#include "ui/qt/dialogs/SaveLoop.h"

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"
#include "ui/qt/dialogs/rules/defaultExtension.h"
#include "ui/qt/dialogs/rules/fileExistence.h"
#include "ui/qt/dialogs/writeProbe.h"

#include <boost/filesystem/operations.hpp>

#include <QMessageBox>
#include <QPointer>

SaveLoopDialog::~SaveLoopDialog() = default;

SaveLoop::SaveLoop(SaveLoopDialog& dialog, zelmar::SaveFileMessageHandlerInterface& handler, const std::string& caption,
                   std::string& selectedFileName)
    : m_dialog(dialog)
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

SaveLoop::Outcome SaveLoop::runOnce()
{
    if (!m_dialog.run())
        return Outcome::GivenUp;
    const QStringList files = m_dialog.selectedFiles();
    if (files.isEmpty()) // a dialog that failed to tell
        return Outcome::GivenUp;

    m_selectedFileName = withDefaultExtension(files.first().toStdString(), m_dialog.selectedNameFilter());
    const std::string nameToCheck = m_handler.filenameToCheck(m_selectedFileName);
    try {
        return examine(nameToCheck);
    } catch (const boost::filesystem::filesystem_error& error) {
        return againIfYes(m_handler.systemAccessError(error.what()));
    }
}

SaveLoop::Outcome SaveLoop::examine(const std::string& nameToCheck)
{
    if (countsAsExisting(fileTypeOf(nameToCheck)) && !isYes(m_handler.okToOverwriteMessage()))
        return Outcome::Again;
    if (!canBeWritten(m_selectedFileName))
        return againIfYes(m_handler.unableToOverwriteMessage());
    return Outcome::Accepted;
}

SaveLoop::Outcome SaveLoop::againIfYes(const std::string& question) const
{
    return isYes(question) ? Outcome::Again : Outcome::GivenUp;
}

bool SaveLoop::isYes(const std::string& question) const
{
    // Not on the stack: the parent may be destroyed while the question is open, and takes the box with it.
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, QString::fromStdString(m_caption), QString::fromStdString(question),
                        QMessageBox::Yes | QMessageBox::No, m_dialog.questionParent());
    box->setDefaultButton(QMessageBox::No);
    // A file name with a "<" in it is shown as it is.
    box->setTextFormat(Qt::PlainText);
    const bool yes = box->exec() == QMessageBox::Yes;
    delete box;
    return yes;
}
