#pragma once

#include "ui/qt/dialogs/windows/comPointers.h"

#include <QString>
#include <QStringList>

/// `text`, in memory that the receiver frees with CoTaskMemFree(); null when there is none left.
LPWSTR taskText(const QString& text);

/// The item at `path`, absolute and with slashes; whether there is anything is not asked.
ComPointer<IShellItem> makeShellItem(const QString& path);

/// Items in the order of `paths`.
ComPointer<IShellItemArray> makeShellItemArray(const QStringList& paths);
