#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "ui/qt/dialogs/dialogKinds_p.h"

using zelmar::internal::callKind;

bool ExtendedFileDialog::m_useNativeFileDialog = true;

ExtendedFileDialog::ExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                                       const std::string& filter, const std::string& helpTopic,
                                       QFileDialog::AcceptMode mode)
{
    if (m_useNativeFileDialog)
        m_winDialog =
            std::make_unique<ExtendedWinFileDialog>(parent, caption, directory, filter, helpTopic, mode, false);
    else {
        m_qtDialog = std::make_unique<QExtendedFileDialog>(parent, caption, directory, filter, helpTopic, mode);
        m_qtDialog->outliveParent(QExtendedFileDialog::Outlives::Always);
    }
}

ExtendedFileDialog::~ExtendedFileDialog()
{
    if (m_qtDialog && m_qtDialog->m_running)
        m_qtDialog.release()->cancelRunAndDelete();
}

int ExtendedFileDialog::exec()
{
    return callKind(m_winDialog, m_qtDialog, [](auto& dialog) { return dialog.exec(); });
}

QStringList ExtendedFileDialog::selectedFiles() const
{
    return callKind(m_winDialog, m_qtDialog, [](auto& dialog) { return dialog.selectedFiles(); });
}

QDir ExtendedFileDialog::directory() const
{
    return callKind(m_winDialog, m_qtDialog, [](auto& dialog) { return dialog.directory(); });
}

void ExtendedFileDialog::setDirectory(const QString& directory)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.setDirectory(directory); });
}

void ExtendedFileDialog::selectFile(const QString& path)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.selectFile(path); });
}

void ExtendedFileDialog::setFileMode(QFileDialog::FileMode mode)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.setFileMode(mode); });
}

QStringList ExtendedFileDialog::nameFilters() const
{
    return callKind(m_winDialog, m_qtDialog, [](auto& dialog) { return dialog.nameFilters(); });
}

void ExtendedFileDialog::setNameFilters(const QStringList& filters)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.setNameFilters(filters); });
}

void ExtendedFileDialog::selectNameFilter(const QString& filter)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.selectNameFilter(filter); });
}

QString ExtendedFileDialog::selectedNameFilter() const
{
    return callKind(m_winDialog, m_qtDialog, [](auto& dialog) { return dialog.selectedNameFilter(); });
}

void ExtendedFileDialog::setDontConfirmOverwrite(bool on)
{
    callKind(m_winDialog, m_qtDialog, [&](auto& dialog) { dialog.setDontConfirmOverwrite(on); });
}

void ExtendedFileDialog::setShowDirectoriesOnly(bool on)
{
    if (m_qtDialog) // Compatibility: directories-only-ignored
        m_qtDialog->setShowDirectoriesOnly(on);
}

bool ExtendedFileDialog::useNativeFileDialog()
{
    return m_useNativeFileDialog;
}

void ExtendedFileDialog::setUseNativeFileDialog(bool on)
{
    m_useNativeFileDialog = on;
}
