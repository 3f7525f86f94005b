#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QFileDialog>
#include <QStringList>

#include <map>
#include <string>
#include <utility>
#include <vector>

// What is asked of the native dialog, translated before anything is asked.

/// `options` with the bits for folders, existing files, several files and the question about overwriting set or
/// cleared; all others stay. QFileDialog::DirectoryOnly counts as AnyFile on purpose.
COMMON_UI_QT_INTERNAL_EXPORT FILEOPENDIALOGOPTIONS nativeOptions(FILEOPENDIALOGOPTIONS options,
                                                                 QFileDialog::FileMode mode, bool confirmOverwrite);

/// `directory` (UTF-8) as the shell wants it, with backslashes for slashes.
COMMON_UI_QT_INTERNAL_EXPORT std::wstring nativeFolder(const std::string& directory);

/// The folder that a start directory (UTF-8) stands for: itself, or that of an existing file, with slashes. Empty when
/// there is no such thing, or it cannot be looked at.
COMMON_UI_QT_INTERNAL_EXPORT std::string startFolder(const std::string& directory);

/// What a menu item stands for; `otherwise` for an item that is not in the map.
COMMON_UI_QT_INTERNAL_EXPORT int optionValue(const std::map<DWORD, int>& values, DWORD item, int otherwise);

/// Name filters as file types.
class COMMON_UI_QT_INTERNAL_EXPORT NativeFileTypes
{
public:
    explicit NativeFileTypes(const QStringList& nameFilters);

    /// Pairs of name and pattern, whose texts live as long as this object.
    std::vector<COMDLG_FILTERSPEC> specs() const;

private:
    std::vector<std::pair<std::wstring, std::wstring>> m_types;
};
