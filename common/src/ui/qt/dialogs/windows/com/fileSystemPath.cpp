#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

namespace zelmar::internal {

std::optional<QString> fileSystemPath(IShellItem* item)
{
    LPWSTR path = nullptr;
    if (!item || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path)) || !path)
        return std::nullopt;
    const CoTaskMemString owner(path);
    return QString::fromWCharArray(path);
}

} // namespace zelmar::internal
