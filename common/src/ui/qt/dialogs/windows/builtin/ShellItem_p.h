#pragma once

#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <QString>
#include <QStringList>

namespace zelmar::internal {

/// Creates the item for an absolute path with slashes. Does not check whether the path exists.
ComPtr<IShellItem> makeShellItem(const QString& path);

/// Creates an array of the items for `paths`, in the same order.
ComPtr<IShellItemArray> makeShellItemArray(const QStringList& paths);

} // namespace zelmar::internal
