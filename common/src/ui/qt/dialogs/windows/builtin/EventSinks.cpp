#include "ui/qt/dialogs/windows/builtin/EventSinks_p.h"

#include <algorithm>

namespace zelmar::internal {

DWORD EventSinks::add(IFileDialogEvents& sink)
{
    m_sinks.emplace(++m_lastCookie, &sink);
    return m_lastCookie;
}

bool EventSinks::remove(DWORD cookie)
{
    const auto entry = m_sinks.find(cookie);
    if (entry == m_sinks.end())
        return false;
    // Releases the sink at the very end, because its destructor may call this object.
    const ComPtr<IFileDialogEvents> removed = entry->second;
    m_sinks.erase(entry);
    m_lateSinks.erase(cookie);
    return true;
}

void EventSinks::acceptLateEvents(DWORD cookie)
{
    m_lateSinks.insert(cookie);
}

bool EventSinks::allAcceptLateEvents() const
{
    return std::all_of(m_sinks.begin(), m_sinks.end(),
                       [this](const auto& entry) { return m_lateSinks.count(entry.first) != 0; });
}

void EventSinks::forEach(const std::function<void(IFileDialogEvents&)>& tell) const
{
    const auto sinks = m_sinks;
    for (const auto& [cookie, sink] : sinks) {
        if (m_sinks.count(cookie) != 0)
            tell(*sink);
    }
}

void EventSinks::forEachWithControls(const std::function<void(IFileDialogControlEvents&)>& tell) const
{
    forEach([&tell](IFileDialogEvents& sink) {
        if (const auto controlEvents = queryFor<IFileDialogControlEvents>(IID_IFileDialogControlEvents, &sink))
            tell(*controlEvents);
    });
}

} // namespace zelmar::internal
