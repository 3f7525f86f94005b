#pragma once

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

namespace zelmar {

/// A message handler whose texts are in the language of the application:
///
///     zelmar::installTranslations();
///     SaveFileDialog dialog(&window, "Save run", folder, "run1", "Data files (*.dat)", "",
///                           std::make_unique<zelmar::TranslatedSaveFileMessageHandler>());
///
/// In English, the texts are those of DefaultSaveFileMessageHandler. Other languages need a translation, either the
/// library's own (see installTranslations()) or one of the application, which translates the context "common_ui_qt".
class COMMON_UI_QT_EXPORT TranslatedSaveFileMessageHandler : public SaveFileMessageHandlerInterface
{
public:
    /// Remembers `filename` for the messages until the next call, and returns it unchanged.
    std::string filenameToCheck(const std::string& filename) override;

    std::string okToOverwriteMessage() const override;
    std::string unableToOverwriteMessage() const override;

    /// Does not translate `error`, which comes from the system.
    std::string systemAccessError(const std::string& error) const override;

private:
    std::string m_filename;
};

} // namespace zelmar
