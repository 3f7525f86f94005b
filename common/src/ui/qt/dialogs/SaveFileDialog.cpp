#include "ui/qt/dialogs/SaveFileDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/dialogKinds_p.h"

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;
using zelmar::internal::callKind;
using zelmar::internal::createKind;

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
    createKind(m_nativeFlow, m_qtFlow, parent, caption, directory, defaultFileName, filter, helpTopic,
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
    createKind(m_nativeFlow, m_qtFlow, parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic,
               std::move(messageHandler));
}

SaveFileDialog::~SaveFileDialog() = default;

bool SaveFileDialog::launch()
{
    return callKind(m_nativeFlow, m_qtFlow, [](auto& flow) { return flow.launch(); });
}

std::string SaveFileDialog::selectedFilename() const
{
    return callKind(m_nativeFlow, m_qtFlow, [](auto& flow) { return flow.selectedFilename(); });
}

std::string SaveFileDialog::selectedFilter() const
{
    return callKind(m_nativeFlow, m_qtFlow, [](auto& flow) { return flow.selectedFilter(); });
}

int SaveFileDialog::selectedWriter() const
{
    return callKind(m_nativeFlow, m_qtFlow, [](auto& flow) { return flow.selectedWriter(); });
}
