#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/SaveFlow.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

class SaveFileWinDialog::Impl : public SaveFlow
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

    ExtendedWinFileDialog* const dialog; // never deleted, on purpose

private:
    QStringList nameFilters() const override;
};

SaveFileWinDialog::Impl::Impl(QWidget* parent, const std::string& caption, const std::string& directory,
                              const std::string& filter, const std::string& helpTopic,
                              std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : SaveFlow(caption, std::move(messageHandler))
    , dialog(new ExtendedWinFileDialog(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave, false))
{
}

void SaveFileWinDialog::Impl::setFilters(const std::vector<std::string>& filters, int selected)
{
    const QStringList names = fromUtf8(filters);
    dialog->setNameFilters(names);
    dialog->selectNameFilter(names.value(selected));
}

void SaveFileWinDialog::Impl::finishSetUp(const std::string& defaultFileName)
{
    dialog->selectFile(QString::fromStdString(defaultFileName));
    // The loop asks before overwriting; asked here too, the user would be asked about the name without its extension.
    dialog->setDontConfirmOverwrite(true);
}

bool SaveFileWinDialog::Impl::run()
{
    return dialog->exec() == QDialog::Accepted;
}

QStringList SaveFileWinDialog::Impl::selectedFiles() const
{
    return dialog->selectedFiles();
}

QString SaveFileWinDialog::Impl::selectedNameFilter() const
{
    return dialog->selectedNameFilter();
}

QStringList SaveFileWinDialog::Impl::nameFilters() const
{
    return dialog->nameFilters();
}

QWidget* SaveFileWinDialog::Impl::questionParent() const
{
    return dialog->parent();
}

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
    : m_impl(std::make_unique<Impl>(parent, caption, directory, filter, helpTopic, std::move(messageHandler)))
{
    m_impl->finishSetUp(defaultFileName);
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
    : m_impl(std::make_unique<Impl>(parent, caption, directory, filters.front(), helpTopic, std::move(messageHandler)))
{
    m_impl->setFilters(filters, selectedFilter);
    m_impl->finishSetUp(defaultFileName);
}

SaveFileWinDialog::~SaveFileWinDialog() = default;

bool SaveFileWinDialog::launch()
{
    return m_impl->launch();
}

std::string SaveFileWinDialog::selectedFilename() const
{
    return m_impl->selectedFileName();
}

std::string SaveFileWinDialog::selectedFilter() const
{
    return m_impl->selectedNameFilter().toStdString();
}

int SaveFileWinDialog::selectedWriter() const
{
    return m_impl->selectedWriter();
}

ExtendedWinFileDialog* SaveFileWinDialog::dialog()
{
    return m_impl->dialog;
}
