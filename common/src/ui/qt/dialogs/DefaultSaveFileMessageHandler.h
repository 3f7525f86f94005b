#pragma once

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

namespace zelmar {

/// The texts of a save flow that is given no others. They name the file in full, as it stands, and are in English
/// whatever the application's language is; derive from this class to translate them.
class COMMON_UI_QT_EXPORT DefaultSaveFileMessageHandler : public SaveFileMessageHandlerInterface
{
public:
    DefaultSaveFileMessageHandler();
    DefaultSaveFileMessageHandler(const DefaultSaveFileMessageHandler&);
    DefaultSaveFileMessageHandler& operator=(const DefaultSaveFileMessageHandler&);
    ~DefaultSaveFileMessageHandler() override;

    /// Remembers `filename` for the messages until the next call, and returns it unchanged.
    std::string filenameToCheck(const std::string& filename) override;

    std::string okToOverwriteMessage() const override;
    std::string unableToOverwriteMessage() const override;
    std::string systemAccessError(const std::string& error) const override;

private:
    std::string m_filename;
};

} // namespace zelmar
