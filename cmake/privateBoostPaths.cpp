// Compiled only when Boost.Filesystem is linked statically into the library, where no application can imbue its paths.
// Narrow strings are UTF-8 here. In the system's code page, a name with other characters would denote another file,
// which does not exist, and the existing file would be overwritten without a question.

#include <boost/filesystem/path.hpp>

#include <codecvt>
#include <locale>

#ifdef _MSC_VER
#pragma warning(disable : 4996) // deprecated, but the standard library has no other facet for UTF-8 yet
#endif

namespace {

const std::locale previous =
    boost::filesystem::path::imbue(std::locale(std::locale::classic(), new std::codecvt_utf8_utf16<wchar_t>));

} // namespace
