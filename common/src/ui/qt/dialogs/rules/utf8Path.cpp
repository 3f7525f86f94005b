#include "ui/qt/dialogs/rules/utf8Path_p.h"

#include <QString>

namespace zelmar::internal {

#ifdef _WIN32

boost::filesystem::path utf8Path(const std::string& text)
{
    return QString::fromStdString(text).toStdWString();
}

std::string genericUtf8(const boost::filesystem::path& path)
{
    return QString::fromStdWString(path.generic_wstring()).toStdString();
}

#else

boost::filesystem::path utf8Path(const std::string& text)
{
    return text;
}

std::string genericUtf8(const boost::filesystem::path& path)
{
    return path.generic_string();
}

#endif

} // namespace zelmar::internal
