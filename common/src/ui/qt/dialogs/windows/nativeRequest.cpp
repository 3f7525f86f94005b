#include "ui/qt/dialogs/windows/nativeRequest_p.h"

#include "platform/utf8ToWideString.h"
#include "ui/qt/dialogs/files/fileExistence_p.h"
#include "ui/qt/dialogs/rules/nativeFilters_p.h"
#include "ui/qt/dialogs/rules/utf8Path_p.h"

#include <boost/filesystem/exception.hpp>

#include <algorithm>

namespace zelmar::internal {

FILEOPENDIALOGOPTIONS nativeOptions(FILEOPENDIALOGOPTIONS options, QFileDialog::FileMode mode, bool confirmOverwrite)
{
    const auto change = [&options](FILEOPENDIALOGOPTIONS bits, bool on) {
        options = on ? options | bits : options & ~bits;
    };
    change(FOS_PICKFOLDERS | FOS_PATHMUSTEXIST, mode == QFileDialog::Directory);
    change(FOS_FILEMUSTEXIST, mode == QFileDialog::ExistingFile || mode == QFileDialog::ExistingFiles);
    change(FOS_ALLOWMULTISELECT, mode == QFileDialog::ExistingFiles);
    change(FOS_OVERWRITEPROMPT, confirmOverwrite);
    return options;
}

std::wstring nativeFolder(const std::string& directory)
{
    std::wstring folder = utf8ToWideString(directory);
    std::replace(folder.begin(), folder.end(), L'/', L'\\');
    return folder;
}

std::string startFolder(const std::string& directory)
{
    try {
        const boost::filesystem::path path = utf8Path(directory);
        const boost::filesystem::file_type type = fileTypeOf(path);
        if (!countsAsExisting(type))
            return {};
        return genericUtf8(type == boost::filesystem::directory_file ? path : path.parent_path());
    } catch (const boost::filesystem::filesystem_error&) {
        return {}; // the system chooses the folder
    }
}

int optionValue(const std::map<DWORD, int>& values, DWORD item, int otherwise)
{
    const auto found = values.find(item);
    return found == values.end() ? otherwise : found->second;
}

NativeFileTypes::NativeFileTypes(const QStringList& nameFilters)
{
    for (const QString& filter : nameFilters) {
        const NativeFilter parts = nativeFilter(filter);
        m_types.emplace_back(utf8ToWideString(parts.name.toStdString()), utf8ToWideString(parts.pattern.toStdString()));
    }
}

std::vector<COMDLG_FILTERSPEC> NativeFileTypes::specs() const
{
    std::vector<COMDLG_FILTERSPEC> specs;
    for (const auto& type : m_types)
        specs.push_back({type.first.c_str(), type.second.c_str()});
    return specs;
}

} // namespace zelmar::internal
