#include "ui/qt/dialogs/SaveFileDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

SaveFileDialog::SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                               const std::string& defaultFileName, const std::string& filter,
                               const std::string& helpTopic)
    : SaveFileDialog(parent, caption, directory, defaultFileName, filter, helpTopic,
                     std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileDialog::SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                               const std::string& defaultFileName, const std::string& filter,
                               const std::string& helpTopic,
                               std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
{
    if (ExtendedFileDialog::useNativeFileDialog())
        m_nativeFlow = std::make_unique<SaveFileWinDialog>(parent, caption, directory, defaultFileName, filter,
                                                           helpTopic, std::move(messageHandler));
    else
        m_qtFlow = std::make_unique<SaveFileQtDialog>(parent, caption, directory, defaultFileName, filter, helpTopic,
                                                      std::move(messageHandler));
}

SaveFileDialog::SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                               const std::string& defaultFileName, const std::vector<std::string>& filters,
                               int selectedFilter, const std::string& helpTopic)
    : SaveFileDialog(parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic,
                     std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileDialog::SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                               const std::string& defaultFileName, const std::vector<std::string>& filters,
                               int selectedFilter, const std::string& helpTopic,
                               std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
{
    if (ExtendedFileDialog::useNativeFileDialog())
        m_nativeFlow = std::make_unique<SaveFileWinDialog>(parent, caption, directory, defaultFileName, filters,
                                                           selectedFilter, helpTopic, std::move(messageHandler));
    else
        m_qtFlow = std::make_unique<SaveFileQtDialog>(parent, caption, directory, defaultFileName, filters,
                                                      selectedFilter, helpTopic, std::move(messageHandler));
}

SaveFileDialog::~SaveFileDialog() = default;

bool SaveFileDialog::launch()
{
    return m_nativeFlow ? m_nativeFlow->launch() : m_qtFlow->launch();
}

std::string SaveFileDialog::selectedFilename() const
{
    return m_nativeFlow ? m_nativeFlow->selectedFilename() : m_qtFlow->selectedFilename();
}

std::string SaveFileDialog::selectedFilter() const
{
    return m_nativeFlow ? m_nativeFlow->selectedFilter() : m_qtFlow->selectedFilter();
}

int SaveFileDialog::selectedWriter() const
{
    return m_nativeFlow ? m_nativeFlow->selectedWriter() : m_qtFlow->selectedWriter();
}
