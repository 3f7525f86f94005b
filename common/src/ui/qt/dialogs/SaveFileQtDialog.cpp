#include "ui/qt/dialogs/SaveFileQtDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/save/SaveFlowOver_p.h"

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;
using zelmar::internal::SaveDialogAdapter;
using zelmar::internal::SaveFlowOver;

class SaveFileQtDialog::Impl
{
public:
    /// The dialog of the flow. Its parent deletes it, but not before the end of a run.
    class Dialog : public SaveDialogAdapter<QExtendedFileDialog>
    {
    public:
        Dialog(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
               const std::string& helpTopic)
            : SaveDialogAdapter(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave)
        {
            outliveParent(Outlives::WhileRunning);
        }

        void cancelRun() override { QExtendedFileDialog::cancelRun(); }
        QWidget* questionParent() override { return this; }
    };

    SaveFlowOver<Dialog> flow;
};

SaveFileQtDialog::SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                   const std::string& defaultFileName, const std::string& filter,
                                   const std::string& helpTopic)
    : SaveFileQtDialog(parent, caption, directory, defaultFileName, filter, helpTopic,
                       std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileQtDialog::SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                   const std::string& defaultFileName, const std::string& filter,
                                   const std::string& helpTopic,
                                   std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : m_impl(new Impl{{parent, caption, directory, defaultFileName, filter, helpTopic, std::move(messageHandler)}})
{
}

SaveFileQtDialog::SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                   const std::string& defaultFileName, const std::vector<std::string>& filters,
                                   int selectedFilter, const std::string& helpTopic)
    : SaveFileQtDialog(parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic,
                       std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileQtDialog::SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                   const std::string& defaultFileName, const std::vector<std::string>& filters,
                                   int selectedFilter, const std::string& helpTopic,
                                   std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : m_impl(new Impl{
        {parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic, std::move(messageHandler)}})
{
}

SaveFileQtDialog::~SaveFileQtDialog() = default;

bool SaveFileQtDialog::launch()
{
    return m_impl->flow.launch();
}

std::string SaveFileQtDialog::selectedFilename() const
{
    return m_impl->flow.selectedFileName();
}

std::string SaveFileQtDialog::selectedFilter() const
{
    return m_impl->flow.selectedFilter().toStdString();
}

int SaveFileQtDialog::selectedWriter() const
{
    return m_impl->flow.selectedWriter();
}

QExtendedFileDialog* SaveFileQtDialog::dialog()
{
    return m_impl->flow.dialog();
}
