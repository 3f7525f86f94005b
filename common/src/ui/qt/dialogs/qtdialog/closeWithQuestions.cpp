#include "ui/qt/dialogs/qtdialog/closeWithQuestions_p.h"

#include <QDialog>
#include <QMessageBox>
#include <QPointer>

#include <vector>

namespace zelmar::internal {

namespace {

/// Returns the visible children of `dialog` of type `Dialog`, as pointers that become null when closing one of them
/// deletes another.
template <typename Dialog>
std::vector<QPointer<Dialog>> openOver(const QDialog& dialog)
{
    std::vector<QPointer<Dialog>> open;
    for (Dialog* child : dialog.findChildren<Dialog*>()) {
        if (child->isVisible())
            open.emplace_back(child);
    }
    return open;
}

/// Closes `question`, and rejects it only if it refuses to close. A rejected message box has no answer, and QFileDialog
/// deletes a file if its question about that has no answer.
void close(QDialog& question)
{
    const QPointer<QDialog> open(&question);
    if (!question.close() && open)
        question.reject();
}

} // namespace

void closeQuestions(QDialog& dialog)
{
    for (const QPointer<QDialog>& question : openOver<QDialog>(dialog)) {
        if (question)
            close(*question);
    }
}

void closeWithQuestions(QDialog& dialog)
{
    const QPointer<QDialog> open(&dialog);
    closeQuestions(dialog);
    if (open)
        dialog.reject();
}

void releaseQuestions(QDialog& dialog)
{
    for (const QPointer<QMessageBox>& question : openOver<QMessageBox>(dialog)) {
        if (question)
            close(*question);
        if (question)
            question->setParent(nullptr, question->windowFlags());
    }
}

} // namespace zelmar::internal
