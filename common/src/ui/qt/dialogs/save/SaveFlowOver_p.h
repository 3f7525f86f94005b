#pragma once

#include "ui/qt/dialogs/save/SaveFlow_p.h"

#include <QDialog>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <utility>
#include <vector>

class QWidget;

namespace zelmar::internal {

/// An adapter through which a save flow uses a file dialog of the class `Dialog`. All kinds of dialog have functions of
/// the same names.
template <typename Dialog>
class SaveDialogAdapter : public Dialog, public SaveDialogInterface
{
public:
    using Dialog::Dialog;

    bool run() override { return Dialog::exec() == QDialog::Accepted; }
    QStringList selectedFiles() override { return Dialog::selectedFiles(); }
    QStringList nameFilters() const override { return Dialog::nameFilters(); }
    QString selectedNameFilter() const override { return Dialog::selectedNameFilter(); }
};

/// A save flow that creates and sets up its dialog, of the class `Dialog`, but never deletes it.
///
/// Compatibility: native-dialog-outlives-the-flow
template <typename Dialog>
class SaveFlowOver : public SaveFlow
{
public:
    using Handler = std::unique_ptr<SaveFileMessageHandlerInterface>;

    SaveFlowOver(QWidget* parent, const std::string& caption, const std::string& directory,
                 const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic,
                 Handler messageHandler)
        : SaveFlow(*new Dialog(parent, caption, directory, filter, helpTopic), caption, std::move(messageHandler))
    {
        finishSetUp(defaultFileName);
    }

    SaveFlowOver(QWidget* parent, const std::string& caption, const std::string& directory,
                 const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                 const std::string& helpTopic, Handler messageHandler)
        : SaveFlow(*new Dialog(parent, caption, directory, filters.front(), helpTopic), caption,
                   std::move(messageHandler))
    {
        QStringList names;
        for (const std::string& filter : filters)
            names += QString::fromStdString(filter);
        dialog()->setNameFilters(names);
        // Selects the filter in the form that the dialog stores, which may have fewer blanks than the caller's.
        dialog()->selectNameFilter(dialog()->nameFilters().value(selectedFilter));
        finishSetUp(defaultFileName);
    }

    /// Returns the dialog, or null once it has been destroyed.
    Dialog* dialog() const { return static_cast<Dialog*>(SaveFlow::dialog()); }

private:
    /// Preselects the name and sets the options. Must be called after the filters are set, because selecting a filter
    /// would give the preselected name the suffix of that filter.
    void finishSetUp(const std::string& defaultFileName)
    {
        dialog()->selectFile(QString::fromStdString(defaultFileName));
        // The flow asks before overwriting. The dialog would ask about the name without the default extension.
        dialog()->setDontConfirmOverwrite(true);
    }
};

} // namespace zelmar::internal
