#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// Words the questions of a save flow (SaveFileQtDialog and its kin).
///
/// A caller whose writer makes a file of another name than the one typed, or wants to say more than the default texts
/// do, derives from this class or from DefaultSaveFileMessageHandler and hands an object to the flow, which owns it.
///
/// What the flow promises, for each time that the user accepts its dialog:
/// 1. filenameToCheck() is called first, once, with the final name, that is with its extension;
/// 2. okToOverwriteMessage() only when what filenameToCheck() returned exists;
/// 3. unableToOverwriteMessage() only when the chosen name (the one handed to filenameToCheck()) cannot be written;
/// 4. systemAccessError() only when the file system failed while the names were looked at.
///
/// All texts are UTF-8 and shown as plain text, in a question box with Yes and No. GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileMessageHandlerInterface
{
public:
    SaveFileMessageHandlerInterface() = default;
    SaveFileMessageHandlerInterface(const SaveFileMessageHandlerInterface&) = default;
    SaveFileMessageHandlerInterface& operator=(const SaveFileMessageHandlerInterface&) = default;
    virtual ~SaveFileMessageHandlerInterface();

    /// Learns the absolute name of the file that is to be saved, and returns the name whose existence decides whether
    /// the user is asked before it is overwritten: usually the same. Not const, for here a handler may remember the
    /// name for its messages.
    virtual std::string filenameToCheck(const std::string& filename) = 0;

    /// Asks whether the existing file may be replaced. Yes goes on, No shows the dialog again.
    virtual std::string okToOverwriteMessage() const = 0;

    /// Says that the file cannot be written and asks whether to choose another place. Yes shows the dialog again, No
    /// ends the flow without a name.
    virtual std::string unableToOverwriteMessage() const = 0;

    /// Says that the file system failed, with `error` as its description, and asks whether to choose another place.
    /// Yes shows the dialog again, No ends the flow without a name.
    virtual std::string systemAccessError(const std::string& error) const = 0;
};

} // namespace zelmar
