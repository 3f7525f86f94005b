#pragma once

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

namespace zelmar {

/// The message handler that a save flow uses by default. Its texts contain the full file name unchanged and are English
/// in every language of the application. TranslatedSaveFileMessageHandler has them in other languages.
///
/// Kept for existing callers, see docs/compatibility.md: untranslated-questions.
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

    /// Advises to check access permissions whatever the reason is, also in a folder that does not exist.
    std::string unableToOverwriteMessage() const override;

    std::string systemAccessError(const std::string& error) const override;

private:
    std::string m_filename;
};

} // namespace zelmar
