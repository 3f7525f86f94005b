#include "testing/DrawnScriptedDialog_p.h"

#include "testing/ScriptStep_p.h"
#include "ui/qt/dialogs/ScriptedUser_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

namespace zelmar::internal {

using testing::ShownControl;
using testing::ShownFileDialog;

DrawnScriptedDialog::DrawnScriptedDialog(QExtendedFileDialog& dialog, QLineEdit& fileNameEdit)
    : m_dialog(&dialog)
    , m_fileNameEdit(fileNameEdit)
    , m_quitsOnClose(dialog.testAttribute(Qt::WA_QuitOnClose))
{
    // Closing the only window would end the application, but this one is never shown.
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.setResult(QDialog::Rejected);
    // Without this, a dialog that was hidden before would send no event when it is hidden once more.
    dialog.setAttribute(Qt::WA_WState_ExplicitShowHide, false);
    dialog.installEventFilter(this);
    connect(&dialog, &QDialog::finished, this, [this] { m_open = false; });
}

DrawnScriptedDialog::~DrawnScriptedDialog()
{
    if (m_dialog)
        m_dialog->setAttribute(Qt::WA_QuitOnClose, m_quitsOnClose);
}

/// Notices that the application closes or hides the dialog, which ends a dialog that is shown.
bool DrawnScriptedDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close || event->type() == QEvent::HideToParent)
        m_open = false;
    return QObject::eventFilter(watched, event);
}

int DrawnScriptedDialog::result() const
{
    return m_dialog ? m_dialog->result() : int(QDialog::Rejected);
}

ShownFileDialog DrawnScriptedDialog::shown() const
{
    ShownFileDialog shown;
    shown.kind = ShownFileDialog::Kind::DrawnByQt;
    if (!m_dialog)
        return shown;
    shown.acceptMode = m_dialog->acceptMode();
    shown.fileMode = m_dialog->fileMode();
    shown.caption = m_dialog->windowTitle();
    shown.folder = m_dialog->directory().absolutePath();
    shown.defaultName = m_fileNameEdit.text();
    shown.nameFilters = m_dialog->nameFilters();
    shown.selectedNameFilter = shown.nameFilters.isEmpty() ? QString() : m_dialog->selectedNameFilter();
    shown.asksBeforeOverwriting =
        shown.acceptMode == QFileDialog::AcceptSave && !m_dialog->testOption(QFileDialog::DontConfirmOverwrite);
    if (const QPushButton* const help = helpButton()) {
        ShownControl control;
        control.label = shownLabel(help->text());
        control.enabled = help->isEnabled();
        control.visible = !help->isHidden();
        shown.controls.push_back(control);
    }
    return shown;
}

QPushButton* DrawnScriptedDialog::helpButton() const
{
    const auto* const buttons = m_dialog ? m_dialog->findChild<QDialogButtonBox*>() : nullptr;
    return buttons ? buttons->button(QDialogButtonBox::Help) : nullptr;
}

void DrawnScriptedDialog::press(std::size_t /*button*/)
{
    helpButton()->click();
}

QString DrawnScriptedDialog::accept(const QStringList& files, int nameFilter)
{
    selectNameFilter(nameFilter);
    if (!isOpen()) // A slot of the application has closed the dialog.
        return {};
    selectFiles(files);
    if (!isOpen() || !isScripted())
        return {};
    if (!hasSelected(files))
        return QStringLiteral("A dialog that Qt draws cannot return these files. It would return %1.")
            .arg(m_dialog->selectedFiles().join(QStringLiteral(", ")));
    static_cast<QDialog&>(*m_dialog).accept();
    return isOpen() ? QStringLiteral("The dialog stays open, because it does not accept the files.") : QString();
}

/// Returns whether a script still takes the place of the user. If a slot of the application has destroyed it, the
/// dialog would ask a user who is not there.
bool DrawnScriptedDialog::isScripted() const
{
    const ScriptedUser* const user = ScriptedUser::current();
    return user && user->isRunning(*m_dialog);
}

void DrawnScriptedDialog::selectNameFilter(int index)
{
    const QString filter = m_dialog->nameFilters().value(index);
    if (index < 0 || filter == m_dialog->selectedNameFilter())
        return;
    m_dialog->selectNameFilter(filter);
    Q_EMIT m_dialog->filterSelected(filter);
}

void DrawnScriptedDialog::enterFolder(const QString& folder) const
{
    if (m_dialog->directory() == QDir(folder))
        return;
    m_dialog->setDirectory(folder);
    if (isOpen())
        Q_EMIT m_dialog->directoryEntered(folder);
}

void DrawnScriptedDialog::selectFiles(const QStringList& files) const
{
    const QString& first = files.first();
    const QString text = fileNameText(files);
    const QString folder = QFileInfo(first).path();
    const bool folderExists = QFileInfo(folder).isDir();
    if (folderExists)
        enterFolder(folder);
    if (isOpen())
        m_dialog->selectFile(text); // deselects all other files
    if (isOpen() && !folderExists)
        m_fileNameEdit.setText(text); // selectFile() takes the path for a relative one
}

/// Returns whether the dialog has taken over the names. It may have appended its default suffix.
bool DrawnScriptedDialog::hasSelected(const QStringList& files) const
{
    const QStringList selected = m_dialog->selectedFiles();
    const QString suffix = QLatin1Char('.') + m_dialog->defaultSuffix();
    bool same = selected.size() == files.size();
    for (int i = 0; same && i < files.size(); ++i) {
        const QString path = QDir::cleanPath(selected.at(i));
        same = path == files.at(i) || path == files.at(i) + suffix;
    }
    return same;
}

void DrawnScriptedDialog::cancel()
{
    static_cast<QDialog&>(*m_dialog).reject();
    if (isOpen()) // A derived class has refused.
        static_cast<QDialog&>(*m_dialog).done(QDialog::Rejected);
}

} // namespace zelmar::internal
