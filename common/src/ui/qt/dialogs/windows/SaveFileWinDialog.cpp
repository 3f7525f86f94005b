#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/rules/defaultExtension_p.h"
#include "ui/qt/dialogs/save/SaveFlowOver_p.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"
#include "ui/qt/dialogs/windows/portalSeam_p.h"

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;
using namespace zelmar::internal;

class SaveFileWinDialog::Impl
{
public:
    /// The dialog of the flow. It is no widget, so that the questions have its parent.
    class Dialog : public SaveDialogAdapter<ExtendedWinFileDialog>
    {
    public:
        Dialog(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
               const std::string& helpTopic)
            : SaveDialogAdapter(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave, false)
            , m_hasParent(parent)
        {
        }

        /// Tells a dialog object that can let a portal show the dialog how the flow completes names. What a portal's
        /// user has not seen is not granted.
        bool run() override
        {
            if (const ComPtr<PortalSeam> seam = portalSeam()) {
                seam->setPathCompletion([filters = nameFilters()](const QString& path, int type) {
                    return QString::fromStdString(withDefaultExtension(path.toStdString(), filters.value(type)));
                });
            }
            return SaveDialogAdapter::run();
        }
        void cancelRun() override { m_impl->cancelRun(); }
        bool hasAskedToReplace(const std::string& name) const override
        {
            const ComPtr<PortalSeam> seam = portalSeam();
            return seam && seam->hasAskedToReplace(QString::fromStdString(name));
        }
        /// Returns false after the parent has been destroyed. A dialog drawn by Qt is destroyed with its parent, so
        /// the native flow also stops when its parent is gone.
        bool canGoOn() override { return !m_hasParent || parent(); }
        QWidget* questionParent() override { return parent(); }

    private:
        ComPtr<PortalSeam> portalSeam() const { return queryFor<PortalSeam>(IID_PortalSeam, m_impl->m_dialog.get()); }

        const bool m_hasParent;
    };

    SaveFlowOver<Dialog> flow;
};

SaveFileWinDialog::SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                     const std::string& defaultFileName, const std::string& filter,
                                     const std::string& helpTopic)
    : SaveFileWinDialog(parent, caption, directory, defaultFileName, filter, helpTopic,
                        std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileWinDialog::SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                     const std::string& defaultFileName, const std::string& filter,
                                     const std::string& helpTopic,
                                     std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : m_impl(new Impl{{parent, caption, directory, defaultFileName, filter, helpTopic, std::move(messageHandler)}})
{
}

SaveFileWinDialog::SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                     const std::string& defaultFileName, const std::vector<std::string>& filters,
                                     int selectedFilter, const std::string& helpTopic)
    : SaveFileWinDialog(parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic,
                        std::make_unique<DefaultSaveFileMessageHandler>())
{
}

SaveFileWinDialog::SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                     const std::string& defaultFileName, const std::vector<std::string>& filters,
                                     int selectedFilter, const std::string& helpTopic,
                                     std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : m_impl(new Impl{
        {parent, caption, directory, defaultFileName, filters, selectedFilter, helpTopic, std::move(messageHandler)}})
{
}

SaveFileWinDialog::~SaveFileWinDialog() = default;

bool SaveFileWinDialog::launch()
{
    return m_impl->flow.launch();
}

std::string SaveFileWinDialog::selectedFilename() const
{
    return m_impl->flow.selectedFileName();
}

std::string SaveFileWinDialog::selectedFilter() const
{
    return m_impl->flow.selectedFilter().toStdString();
}

int SaveFileWinDialog::selectedWriter() const
{
    return m_impl->flow.selectedWriter();
}

ExtendedWinFileDialog* SaveFileWinDialog::dialog()
{
    return m_impl->flow.dialog();
}
