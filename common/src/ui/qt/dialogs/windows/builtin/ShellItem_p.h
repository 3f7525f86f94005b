#pragma once

#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <QString>
#include <QStringList>

namespace zelmar::internal {

/// Makes the item for an absolute path with slashes. Does not check that the path exists.
ComPtr<IShellItem> makeShellItem(const QString& path);

/// Makes an array of items in the order of `paths`.
ComPtr<IShellItemArray> makeShellItemArray(const QStringList& paths);

} // namespace zelmar::internal
