#include "ui/qt/dialogs/SaveFileQtDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFlow_p.h"

#include <QPointer>

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

class SaveFileQtDialog::Impl : public SaveFlow
{
public:
    Impl(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
         const std::string& helpTopic, std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler);
    ~Impl() override;
    Q_DISABLE_COPY(Impl)

    void setFilters(const std::vector<std::string>& filters, int selected);
    void finishSetUp(const std::string& defaultFileName);

    bool canGoOn() const override;
    bool run() override;
    QStringList selectedFiles() const override;
    QString selectedNameFilter() const override;
    QWidget* questionParent() const override;

    const QPointer<QExtendedFileDialog> dialog; // owned by its parent. Compatibility: native-dialog-outlives-the-flow

private:
    QStringList nameFilters() const override;
};

SaveFileQtDialog::Impl::Impl(QWidget* parent, const std::string& caption, const std::string& directory,
                             const std::string& filter, const std::string& helpTopic,
                             std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : SaveFlow(caption, std::move(messageHandler))
    , dialog(new QExtendedFileDialog(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave))
{
    dialog->outliveParentWhileRunning();
}

SaveFileQtDialog::Impl::~Impl()
{
    if (dialog && isLaunched())
        dialog->cancelRun();
}

void SaveFileQtDialog::Impl::setFilters(const std::vector<std::string>& filters, int selected)
{
    dialog->setNameFilters(fromUtf8(filters));
    // Selects the filter in the form that the dialog stores, which may have fewer blanks than the caller's.
    dialog->selectNameFilter(dialog->nameFilters().value(selected));
}

/// Preselects the name and sets the options. Must be called after the filters are set, because selecting a filter would
/// give the preselected name the suffix of that filter.
void SaveFileQtDialog::Impl::finishSetUp(const std::string& defaultFileName)
{
    dialog->selectFile(QString::fromStdString(defaultFileName));
    // The save loop asks before overwriting. The dialog would ask about the name without its extension.
    dialog->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
}

bool SaveFileQtDialog::Impl::canGoOn() const
{
    return dialog;
}

bool SaveFileQtDialog::Impl::run()
{
    return dialog && dialog->exec() == QDialog::Accepted;
}

QStringList SaveFileQtDialog::Impl::selectedFiles() const
{
    return dialog ? dialog->selectedFiles() : QStringList();
}

QString SaveFileQtDialog::Impl::selectedNameFilter() const
{
    return dialog ? dialog->selectedNameFilter() : QString();
}

QStringList SaveFileQtDialog::Impl::nameFilters() const
{
    return dialog ? dialog->nameFilters() : QStringList();
}

QWidget* SaveFileQtDialog::Impl::questionParent() const
{
    return dialog;
}

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
    : m_impl(std::make_unique<Impl>(parent, caption, directory, filter, helpTopic, std::move(messageHandler)))
{
    m_impl->finishSetUp(defaultFileName);
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
    : m_impl(std::make_unique<Impl>(parent, caption, directory, filters.front(), helpTopic, std::move(messageHandler)))
{
    m_impl->setFilters(filters, selectedFilter);
    m_impl->finishSetUp(defaultFileName);
}

SaveFileQtDialog::~SaveFileQtDialog() = default;

bool SaveFileQtDialog::launch()
{
    return m_impl->launch();
}

std::string SaveFileQtDialog::selectedFilename() const
{
    return m_impl->selectedFileName();
}

std::string SaveFileQtDialog::selectedFilter() const
{
    return m_impl->selectedNameFilter().toStdString();
}

int SaveFileQtDialog::selectedWriter() const
{
    return m_impl->selectedWriter();
}

QExtendedFileDialog* SaveFileQtDialog::dialog()
{
    return m_impl->dialog;
}
