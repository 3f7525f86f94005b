#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <functional>
#include <map>
#include <set>

namespace zelmar::internal {

/// A list of the event sinks of a dialog. Holds a reference to each sink until remove() or its own destruction.
class COMMON_UI_QT_INTERNAL_EXPORT EventSinks
{
public:
    /// Adds a sink and returns its cookie, which is never 0.
    DWORD add(IFileDialogEvents& sink);
    /// Removes the sink with this cookie. Returns false if there is none.
    bool remove(DWORD cookie);

    /// Declares that the sink with this cookie may be notified of all events after the dialog has closed.
    void acceptLateEvents(DWORD cookie);
    /// Returns whether all sinks may.
    bool allAcceptLateEvents() const;

    /// Calls `tell` for each sink in the order in which they were added. `tell` may add and remove sinks: a removed
    /// sink is no longer called, and an added sink is called only the next time. An exception that `tell` throws ends
    /// the loop and is passed on to the caller.
    void forEach(const std::function<void(IFileDialogEvents&)>& tell) const;
    /// Does the same for the sinks that implement IFileDialogControlEvents.
    void forEachWithControls(const std::function<void(IFileDialogControlEvents&)>& tell) const;

private:
    std::map<DWORD, ComPtr<IFileDialogEvents>> m_sinks;
    std::set<DWORD> m_lateSinks; ///< the cookies of the sinks that accept late events
    DWORD m_lastCookie = 0;
};

} // namespace zelmar::internal
