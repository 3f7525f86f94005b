#pragma once

#include "ui/qt/dialogs/windows/comPointers_p.h"

#include <QString>
#include <QStringList>

/// Copies `text` into memory that the receiver frees with CoTaskMemFree(). Returns null when memory is exhausted.
LPWSTR taskText(const QString& text);

/// Makes the item for an absolute path with slashes. Does not check that the path exists.
ComPointer<IShellItem> makeShellItem(const QString& path);

/// Makes an array of items in the order of `paths`.
ComPointer<IShellItemArray> makeShellItemArray(const QStringList& paths);
