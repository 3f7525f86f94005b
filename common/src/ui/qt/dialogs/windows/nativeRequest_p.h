#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QFileDialog>
#include <QStringList>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelmar::internal {

// Functions that translate a request into the terms of the native dialog. Only startFolder() looks at the file system.

/// Returns `options` with the bits for folders, existing files, several files and the overwrite question set or
/// cleared, and all other bits unchanged. Qt 5's QFileDialog::DirectoryOnly counts as AnyFile.
///
/// Compatibility: directory-only-is-any-file
COMMON_UI_QT_INTERNAL_EXPORT FILEOPENDIALOGOPTIONS nativeOptions(FILEOPENDIALOGOPTIONS options,
                                                                 QFileDialog::FileMode mode, bool confirmOverwrite);

/// Converts a directory (UTF-8) into the shell's form, with backslashes instead of slashes.
COMMON_UI_QT_INTERNAL_EXPORT std::wstring nativeFolder(const std::string& directory);

/// Returns the folder in which a dialog opens whose caller asks for `directory` (UTF-8): the directory itself, or the
/// parent folder of an existing file, with slashes as separators. Empty when nothing is there or the file system
/// reports an error.
COMMON_UI_QT_INTERNAL_EXPORT std::string startFolder(const std::string& directory);

/// Returns the option value of a menu item, or `otherwise` for an item that is not in the map.
COMMON_UI_QT_INTERNAL_EXPORT int optionValue(const std::map<DWORD, int>& values, DWORD item, int otherwise);

/// A list of the native dialog's file types, made from name filters.
class COMMON_UI_QT_INTERNAL_EXPORT NativeFileTypes
{
public:
    explicit NativeFileTypes(const QStringList& nameFilters);

    /// Returns pairs of name and pattern. The strings that they point to live as long as this object.
    std::vector<COMDLG_FILTERSPEC> specs() const;

private:
    std::vector<std::pair<std::wstring, std::wstring>> m_types;
};

} // namespace zelmar::internal
