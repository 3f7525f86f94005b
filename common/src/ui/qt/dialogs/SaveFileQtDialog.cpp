#include "ui/qt/dialogs/SaveFileQtDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFlow.h"

#include <QPointer>

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

class SaveFileQtDialog::Impl : public SaveFlow
{
public:
    Impl(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
         const std::string& helpTopic, std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler);

    void setFilters(const std::vector<std::string>& filters, int selected);
    void finishSetUp(const std::string& defaultFileName);

    bool run() override;
    QStringList selectedFiles() const override;
    QString selectedNameFilter() const override;
    QWidget* questionParent() const override;

    const QPointer<QExtendedFileDialog> dialog; // its parent's to delete

private:
    QStringList nameFilters() const override;
};

SaveFileQtDialog::Impl::Impl(QWidget* parent, const std::string& caption, const std::string& directory,
                             const std::string& filter, const std::string& helpTopic,
                             std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : SaveFlow(caption, std::move(messageHandler))
    , dialog(new QExtendedFileDialog(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave))
{
}

void SaveFileQtDialog::Impl::setFilters(const std::vector<std::string>& filters, int selected)
{
    dialog->setNameFilters(fromUtf8(filters));
    dialog->selectNameFilter(dialog->nameFilters().value(selected)); // as the dialog keeps it, without needless blanks
}

/// After the filters: selecting one of them would give the preselected name its suffix.
void SaveFileQtDialog::Impl::finishSetUp(const std::string& defaultFileName)
{
    dialog->selectFile(QString::fromStdString(defaultFileName));
    // The loop asks before overwriting; asked here too, the user would be asked about the name without its extension.
    dialog->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
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
