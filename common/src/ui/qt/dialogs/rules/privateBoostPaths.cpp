// Built only where the library has a Boost.Filesystem of its own inside. No application can tell that one how to read
// narrow text as a path, and by itself it takes the system's code page: a name beyond it would be another file's, which
// is not there and is overwritten without a question. Names come as UTF-8.

#include <boost/filesystem/path.hpp>

#include <codecvt>
#include <locale>

#ifdef _MSC_VER
#pragma warning(disable : 4996) // the standard library has no other facet for it yet
#endif

namespace {

const std::locale previous =
    boost::filesystem::path::imbue(std::locale(std::locale::classic(), new std::codecvt_utf8_utf16<wchar_t>));

} // namespace
