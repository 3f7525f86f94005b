#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/comPointers.h"

#include <functional>
#include <map>

/// Who wants to be told of what happens in a dialog. References are held from add() to remove(), or to the end.
class COMMON_UI_QT_INTERNAL_EXPORT EventSinks
{
public:
    /// A number that stands for the sink from now on; never 0.
    DWORD add(IFileDialogEvents& sink);
    /// False for a number that stands for nothing.
    bool remove(DWORD cookie);

    /// Calls `tell` with each sink that is there now, in order of adding. Sinks may come and go meanwhile: one that was
    /// removed is not called any more. An exception of `tell` ends it, and is passed on.
    void forEach(const std::function<void(IFileDialogEvents&)>& tell) const;
    /// The same with the control events of those sinks that have them.
    void forEachWithControls(const std::function<void(IFileDialogControlEvents&)>& tell) const;

private:
    std::map<DWORD, ComPointer<IFileDialogEvents>> m_sinks;
    DWORD m_lastCookie = 0;
};
