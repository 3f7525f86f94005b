#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"
#include "ui/qt/dialogs/windows/FakeWidget_p.h"

#include <QFileInfo>

#include <utility>

ExtendedWinFileDialog::ExtendedWinFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                                             const std::string& filter, const std::string& helpTopic,
                                             QFileDialog::AcceptMode mode, bool useAcceptButtonMenu)
    : ExtendedWinFileDialog(&parent, caption, directory, filter, helpTopic, mode, useAcceptButtonMenu)
{
}

ExtendedWinFileDialog::ExtendedWinFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                             const std::string& filter, const std::string& helpTopic,
                                             QFileDialog::AcceptMode mode, bool useAcceptButtonMenu)
    : m_impl(new Impl(parent, caption, directory, filter, helpTopic, mode, useAcceptButtonMenu))
{
}

ExtendedWinFileDialog::~ExtendedWinFileDialog()
{
    delete m_impl;
}

QDialog::DialogCode ExtendedWinFileDialog::exec()
{
    return m_impl->exec();
}

void ExtendedWinFileDialog::selectFile(const QString& path)
{
    // Compatibility: folder-of-name-dropped
    m_impl->m_selectedFileName->setValue(QFileInfo(path).fileName().toStdString());
}

QStringList ExtendedWinFileDialog::selectedFiles()
{
    return m_impl->selectedFiles();
}

void ExtendedWinFileDialog::setFileMode(QFileDialog::FileMode mode)
{
    m_impl->m_fileMode = mode;
}

QDir ExtendedWinFileDialog::directory() const
{
    return QDir(QString::fromStdString(m_impl->m_directory->value()));
}

void ExtendedWinFileDialog::setDirectory(const QString& directory)
{
    m_impl->m_directory->setValue(directory.toStdString());
}

QStringList ExtendedWinFileDialog::nameFilters() const
{
    return m_impl->m_nameFilters;
}

void ExtendedWinFileDialog::setNameFilters(const QStringList& filters)
{
    m_impl->m_nameFilters = filters;
}

void ExtendedWinFileDialog::selectNameFilter(const QString& filter)
{
    const auto currentFilterIndex =
        m_impl->m_currentFilterIndex; // keeps the property alive if an observer deletes this object
    currentFilterIndex->setValue(m_impl->m_nameFilters.indexOf(filter) + 1);
}

QString ExtendedWinFileDialog::selectedNameFilter() const
{
    return m_impl->selectedNameFilter();
}

QWidget* ExtendedWinFileDialog::addCustomButton(const std::string& label, boost::function<void()> onClick)
{
    return m_impl->addCustomButton(label, std::move(onClick));
}

QWidget* ExtendedWinFileDialog::addCustomCheckBox(const std::string& label,
                                                  boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked)
{
    return m_impl->addCustomCheckBox(label, std::move(checked));
}

QWidget* ExtendedWinFileDialog::addAcceptButtonOption(const std::string& label, int value)
{
    return m_impl->addAcceptButtonOption(label, value);
}

void ExtendedWinFileDialog::clearAcceptMenuOptions()
{
    m_impl->clearAcceptMenuOptions();
}

int ExtendedWinFileDialog::selectedAcceptMenuOption() const
{
    return m_impl->m_selectedAcceptMenuOption;
}

void ExtendedWinFileDialog::setDontConfirmOverwrite(bool on)
{
    m_impl->m_dontConfirmOverwrite = on;
}

void ExtendedWinFileDialog::setShowDirectoriesOnly(bool /*on*/)
{
    // Compatibility: directories-only-ignored
}

boost::shared_ptr<zelmar::PropertyAbstract<int>> ExtendedWinFileDialog::currentFilterIndex() const
{
    return m_impl->m_currentFilterIndex;
}

QWidget* ExtendedWinFileDialog::parent()
{
    return m_impl->m_parent;
}

void ExtendedWinFileDialog::close()
{
    m_impl->close();
}
