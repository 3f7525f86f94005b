#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/SaveFlow_p.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"

#include <QWidget>

#include <utility>

using zelmar::DefaultSaveFileMessageHandler;
using zelmar::SaveFileMessageHandlerInterface;

class SaveFileWinDialog::Impl : public SaveFlow
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

    /// Returns the dialog, or null after somebody has deleted it. A derived class may have handed it out.
    ExtendedWinFileDialog* dialog() const { return m_dialogLife.expired() ? nullptr : m_dialog; }

private:
    QStringList nameFilters() const override;

    ExtendedWinFileDialog* const m_dialog; // Compatibility: native-dialog-outlives-the-flow
    const std::weak_ptr<const bool> m_dialogLife;
    const bool m_hasParent;
};

SaveFileWinDialog::Impl::Impl(QWidget* parent, const std::string& caption, const std::string& directory,
                              const std::string& filter, const std::string& helpTopic,
                              std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : SaveFlow(caption, std::move(messageHandler))
    , m_dialog(new ExtendedWinFileDialog(parent, caption, directory, filter, helpTopic, QFileDialog::AcceptSave, false))
    , m_dialogLife(m_dialog->m_impl->m_life)
    , m_hasParent(parent)
{
}

SaveFileWinDialog::Impl::~Impl()
{
    if (dialog() && isLaunched())
        m_dialog->m_impl->cancelRun();
}

void SaveFileWinDialog::Impl::setFilters(const std::vector<std::string>& filters, int selected)
{
    const QStringList names = fromUtf8(filters);
    m_dialog->setNameFilters(names);
    m_dialog->selectNameFilter(names.value(selected));
}

void SaveFileWinDialog::Impl::finishSetUp(const std::string& defaultFileName)
{
    m_dialog->selectFile(QString::fromStdString(defaultFileName));
    // The loop asks the overwrite question itself. The dialog's own question would name the file without its extension.
    m_dialog->setDontConfirmOverwrite(true);
}

/// Returns false after the parent or the dialog has been destroyed. A dialog drawn by Qt is destroyed with its parent,
/// so the native flow also stops when its parent is gone.
bool SaveFileWinDialog::Impl::canGoOn() const
{
    return dialog() && (!m_hasParent || m_dialog->parent());
}

bool SaveFileWinDialog::Impl::run()
{
    return m_dialog->exec() == QDialog::Accepted;
}

QStringList SaveFileWinDialog::Impl::selectedFiles() const
{
    return m_dialog->selectedFiles();
}

QString SaveFileWinDialog::Impl::selectedNameFilter() const
{
    return dialog() ? m_dialog->selectedNameFilter() : QString();
}

QStringList SaveFileWinDialog::Impl::nameFilters() const
{
    return dialog() ? m_dialog->nameFilters() : QStringList();
}

QWidget* SaveFileWinDialog::Impl::questionParent() const
{
    return m_dialog->parent();
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
    return m_impl->dialog();
}
