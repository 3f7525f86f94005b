#include "ui/qt/dialogs/rules/fileExistence.h"

#include "ui/qt/dialogs/rules/utf8Path.h"

namespace fs = boost::filesystem;

bool countsAsExisting(fs::file_type type)
{
    return type != fs::status_error && type != fs::file_not_found;
}

fs::file_type fileTypeOf(const std::string& name)
{
    boost::system::error_code error;
    return fs::status(utf8Path(name), error).type();
}
