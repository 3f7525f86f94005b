#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// The source of the texts in the questions of a save flow (SaveFileDialog, SaveFileQtDialog and SaveFileWinDialog).
///
/// An application whose writer creates a file under another name than the chosen one, or that wants other texts,
/// derives from this class or from DefaultSaveFileMessageHandler and passes an object to the flow, which owns it.
///
/// Each time that the user accepts the dialog, the flow calls
/// 1. filenameToCheck() first and exactly once, with the final name including its extension;
/// 2. okToOverwriteMessage() only when the name that filenameToCheck() returned exists;
/// 3. unableToOverwriteMessage() only when the file that filenameToCheck() received cannot be written;
/// 4. systemAccessError() only when one of these two has thrown a boost::filesystem::filesystem_error. The flow itself
///    examines names without exceptions. It catches no other exception, and none of filenameToCheck().
///
/// A function may delete the flow, and with it this handler, or the flow's parent. The flow then ends without a name
/// and touches neither. The arguments of the function stay valid until it returns.
///
/// All texts are UTF-8. They are shown as plain text in a question box with the buttons Yes and No. GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileMessageHandlerInterface
{
public:
    SaveFileMessageHandlerInterface() = default;
    SaveFileMessageHandlerInterface(const SaveFileMessageHandlerInterface&) = default;
    SaveFileMessageHandlerInterface& operator=(const SaveFileMessageHandlerInterface&) = default;
    virtual ~SaveFileMessageHandlerInterface();

    /// Receives the absolute name of the file to be saved, and returns the name whose existence decides whether the
    /// overwrite question is asked, which usually is the same. Not const, so that a handler can remember the name for
    /// its messages. Whether the file can be written is checked for `filename` and not for the returned name.
    ///
    /// Kept for existing callers, see docs/compatibility.md: probe-of-the-selected-name.
    virtual std::string filenameToCheck(const std::string& filename) = 0;

    /// Returns the question whether the existing file may be replaced. Yes continues, No shows the dialog again.
    virtual std::string okToOverwriteMessage() const = 0;

    /// Returns the question whether to choose another location, because the file cannot be written. Yes shows the
    /// dialog again, No ends the flow without a name.
    ///
    /// The flow knows only that writing failed. The reason may be missing access rights, but also a folder that does
    /// not exist or a full disk. A handler that explains the reason examines the name that it remembered. A dialog that
    /// the library draws reports a missing folder beside the name.
    virtual std::string unableToOverwriteMessage() const = 0;

    /// Returns the question whether to choose another location, because `error` was caught while the name was
    /// examined. Yes shows the dialog again, No ends the flow without a name.
    virtual std::string systemAccessError(const std::string& error) const = 0;
};

} // namespace zelmar
