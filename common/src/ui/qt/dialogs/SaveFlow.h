#pragma once

#include "ui/qt/dialogs/SaveLoop.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

/// What the save flows have in common whatever dialog they run: the texts, the result, and what becomes of the filters.
class SaveFlow : public SaveLoopDialog
{
public:
    /// `caption`: UTF-8. `messageHandler` must not be null.
    SaveFlow(const std::string& caption, std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);
    ~SaveFlow() override;

    /// Runs the dialog until there is a name that may be written; false when the user gave up.
    bool launch();

    /// The name of the last round in which the dialog was accepted.
    const std::string& selectedFileName() const { return m_selectedFileName; }

    /// Where the selected filter is in the dialog's list, from 0; -1 when it is not.
    int selectedWriter() const;

protected:
    virtual QStringList nameFilters() const = 0;

private:
    const std::string m_caption;
    std::string m_selectedFileName;
    const std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> m_messageHandler;
};

/// UTF-8 texts as Qt's.
QStringList fromUtf8(const std::vector<std::string>& texts);
