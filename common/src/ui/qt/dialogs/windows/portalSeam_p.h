#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>

#include <functional>

namespace zelmar::internal {

/// Returns the path under which a file is saved whose path the user has chosen under the file type with this index
/// (from 0): with an extension if it lacks one.
using PathCompletion = std::function<QString(const QString& path, int type)>;

/// The private interface of a dialog object that may let a desktop portal show the dialog. Found by QueryInterface();
/// the system's dialog objects do not have it.
///
/// A portal tells nothing while its dialog is open, cannot change the typed name, and asks before overwriting itself.
class PortalSeam : public IUnknown
{
public:
    /// Declares that the event sink with this cookie may be notified of all events after the user has accepted the
    /// dialog. A dialog object with any other sink shows its own dialog.
    virtual void acceptLateEvents(DWORD cookie) = 0;

    /// Sets how a save dialog completes names; an empty function leaves names as they are. If the completed name
    /// differs from the one that the user has accepted in a portal's dialog, the dialog asks again with the completed
    /// name before OnFileOk(). Has no effect on dialogs of the object's own.
    virtual void setPathCompletion(PathCompletion completion) = 0;

    /// Returns whether the latest dialog was a portal's, in which the user has agreed to replace the file at `path` in
    /// case it exists.
    virtual bool hasAskedToReplace(const QString& path) const = 0;

protected:
    PortalSeam() = default;
    ~PortalSeam() = default;
    PortalSeam(const PortalSeam&) = default;
    PortalSeam& operator=(const PortalSeam&) = default;
};

constexpr IID IID_PortalSeam = {0x2f6d1c84, 0x5a0b, 0x4e39, {0x9d, 0x27, 0xb1, 0x4c, 0x70, 0x3e, 0x8a, 0x56}};

} // namespace zelmar::internal
