#include "ui/qt/dialogs/windows/fileSystemPath_p.h"

#include "ui/qt/dialogs/windows/comPointers_p.h"

std::optional<QString> fileSystemPath(IShellItem* item)
{
    LPWSTR path = nullptr;
    if (!item || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path)) || !path)
        return std::nullopt;
    const TaskText owner(path);
    return QString::fromWCharArray(path);
}
