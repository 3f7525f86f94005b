#pragma once

#include "internal_export.h"

#include <QString>
#include <QStringList>

#include <string>

class QWidget;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

/// What the save loop needs of a file dialog.
class COMMON_UI_QT_INTERNAL_EXPORT SaveLoopDialog
{
public:
    virtual ~SaveLoopDialog();

    /// Shows the dialog and waits for it; true when the user accepted.
    virtual bool run() = 0;
    virtual QStringList selectedFiles() const = 0;
    virtual QString selectedNameFilter() const = 0;
    /// The parent of the question boxes; may be null.
    virtual QWidget* questionParent() const = 0;
};

/// The way from a dialog to a name that may be written, the same for every kind of dialog: takes the first selected
/// file, gives it the default extension, asks before an existing file is replaced, proves that the place can be
/// written, and shows the dialog again as long as the user wants to try.
class COMMON_UI_QT_INTERNAL_EXPORT SaveLoop
{
public:
    /// Borrows everything. `caption` (UTF-8) is the title of the questions. `selectedFileName` (UTF-8) is set to the
    /// name with its extension each time that the dialog is accepted, before anything is asked about it.
    SaveLoop(SaveLoopDialog& dialog, zelmar::SaveFileMessageHandlerInterface& handler, const std::string& caption,
             std::string& selectedFileName);

    /// True when a name was accepted and may be written, and every question about it was answered with Yes.
    bool run();

private:
    /// What comes of one showing of the dialog.
    enum class Outcome { Accepted, GivenUp, Again };

    Outcome runOnce();
    Outcome examine(const std::string& nameToCheck);
    Outcome againIfYes(const std::string& question) const;
    bool isYes(const std::string& question) const;

    SaveLoopDialog& m_dialog;
    zelmar::SaveFileMessageHandlerInterface& m_handler;
    const std::string& m_caption;
    std::string& m_selectedFileName;
};
