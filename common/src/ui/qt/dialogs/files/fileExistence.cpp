#include "ui/qt/dialogs/files/fileExistence_p.h"

namespace fs = boost::filesystem;

namespace zelmar::internal {

bool countsAsExisting(fs::file_type type)
{
    return type != fs::status_error && type != fs::file_not_found;
}

fs::file_type fileTypeOf(const fs::path& path)
{
    boost::system::error_code error;
    return fs::status(path, error).type();
}

} // namespace zelmar::internal
