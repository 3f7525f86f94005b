#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

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
        m_qtDialog->outliveParent();
    }
}

ExtendedFileDialog::~ExtendedFileDialog()
{
    if (m_qtDialog && m_qtDialog->m_running)
        m_qtDialog.release()->cancelRunAndDelete();
}

int ExtendedFileDialog::exec()
{
    return m_winDialog ? m_winDialog->exec() : m_qtDialog->exec();
}

QStringList ExtendedFileDialog::selectedFiles() const
{
    return m_winDialog ? m_winDialog->selectedFiles() : m_qtDialog->selectedFiles();
}

QDir ExtendedFileDialog::directory() const
{
    return m_winDialog ? m_winDialog->directory() : m_qtDialog->directory();
}

void ExtendedFileDialog::setDirectory(const QString& directory)
{
    m_winDialog ? m_winDialog->setDirectory(directory) : m_qtDialog->setDirectory(directory);
}

void ExtendedFileDialog::selectFile(const QString& path)
{
    m_winDialog ? m_winDialog->selectFile(path) : m_qtDialog->selectFile(path);
}

void ExtendedFileDialog::setFileMode(QFileDialog::FileMode mode)
{
    m_winDialog ? m_winDialog->setFileMode(mode) : m_qtDialog->setFileMode(mode);
}

QStringList ExtendedFileDialog::nameFilters() const
{
    return m_winDialog ? m_winDialog->nameFilters() : m_qtDialog->nameFilters();
}

void ExtendedFileDialog::setNameFilters(const QStringList& filters)
{
    m_winDialog ? m_winDialog->setNameFilters(filters) : m_qtDialog->setNameFilters(filters);
}

void ExtendedFileDialog::selectNameFilter(const QString& filter)
{
    m_winDialog ? m_winDialog->selectNameFilter(filter) : m_qtDialog->selectNameFilter(filter);
}

QString ExtendedFileDialog::selectedNameFilter() const
{
    return m_winDialog ? m_winDialog->selectedNameFilter() : m_qtDialog->selectedNameFilter();
}

void ExtendedFileDialog::setDontConfirmOverwrite(bool on)
{
    m_winDialog ? m_winDialog->setDontConfirmOverwrite(on)
                : m_qtDialog->setOption(QFileDialog::DontConfirmOverwrite, on);
}

void ExtendedFileDialog::setShowDirectoriesOnly(bool on)
{
    if (!m_winDialog) // Compatibility: directories-only-ignored
        m_qtDialog->setOption(QFileDialog::ShowDirsOnly, on);
}

bool ExtendedFileDialog::useNativeFileDialog()
{
    return m_useNativeFileDialog;
}

void ExtendedFileDialog::setUseNativeFileDialog(bool on)
{
    m_useNativeFileDialog = on;
}
