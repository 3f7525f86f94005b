#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"
#include "ui/qt/dialogs/save/SaveDialogInterface_p.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <string>

namespace zelmar::internal {

/// A save flow over a file dialog of any kind. It owns the caption, the message handler and the result, but not the
/// dialog. It shows the dialog until the user has chosen a name that may be written, or gives up.
class COMMON_UI_QT_INTERNAL_EXPORT SaveFlow
{
public:
    /// Creates a flow over `dialog`, which anybody may delete at any time. The questions have the title `caption`
    /// (UTF-8). `messageHandler` must not be null.
    SaveFlow(SaveDialogInterface& dialog, const std::string& caption,
             std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler);
    /// Cancels a run of the dialog that is in progress.
    ~SaveFlow();
    Q_DISABLE_COPY(SaveFlow)

    /// Runs rounds of the dialog and its questions. Returns true once the user has accepted a name that can be written
    /// and, if the file exists, has agreed to overwrite it. Returns false if the user gives up, if this object or one
    /// that it needs is destroyed meanwhile, if the application quits, and if launch() is running already.
    bool launch();

    /// Returns the name with its extension (UTF-8) of the last round in which the user accepted the dialog. It is set
    /// before any question of that round.
    const std::string& selectedFileName() const { return m_selectedFileName; }

    /// Returns the name filter that is selected in the dialog, or an empty text without a dialog.
    QString selectedFilter() const;

    /// Returns the index (from 0) of the selected filter in the dialog's list, or -1 if it is not in the list.
    int selectedWriter() const;

    /// Returns the dialog, or null once it has been destroyed.
    SaveDialogInterface* dialog() const { return m_dialogLife ? m_dialog : nullptr; }

private:
    /// Its destruction closes an open question. Declared first, so that all other members are destroyed before it.
    const QObject m_life;
    SaveDialogInterface* const m_dialog;
    const QPointer<const QObject> m_dialogLife;
    const std::string m_caption;
    std::string m_selectedFileName;
    const std::unique_ptr<SaveFileMessageHandlerInterface> m_messageHandler;
    bool m_launched = false;
};

} // namespace zelmar::internal
