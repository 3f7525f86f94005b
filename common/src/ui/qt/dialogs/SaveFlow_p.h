#pragma once

#include "ui/qt/dialogs/SaveLoop_p.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

/// The common base of the save flows over either kind of dialog. It owns the caption, the message handler and the
/// result, and runs the save loop.
class SaveFlow : public SaveLoopDialog
{
public:
    /// Creates a flow whose questions have the title `caption` (UTF-8). `messageHandler` must not be null.
    SaveFlow(const std::string& caption, std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);
    ~SaveFlow() override;

    /// Runs the dialog until the user has chosen a name that may be written, and returns true. Returns false if the
    /// user gives up, if this object or one that it needs is destroyed meanwhile, and if launch() is running already.
    bool launch();

    /// Returns the name of the last round in which the user accepted the dialog, as UTF-8.
    const std::string& selectedFileName() const { return m_selectedFileName; }

    /// Returns the index (from 0) of the selected filter in the dialog's list, or -1 if it is not in the list.
    int selectedWriter() const;

protected:
    /// Returns true while launch() runs.
    bool isLaunched() const { return m_launched; }
    virtual QStringList nameFilters() const = 0;

private:
    const std::string m_caption;
    std::string m_selectedFileName;
    const std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> m_messageHandler;
    bool m_launched = false;
};

/// Converts UTF-8 strings to Qt strings.
QStringList fromUtf8(const std::vector<std::string>& texts);
