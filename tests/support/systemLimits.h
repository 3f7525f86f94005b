#pragma once

/// Why a test cannot be made on some system: every reason for QSKIP, or for a test program of one system only, is here.
namespace systemLimits {

/// Pipes, devices and links that any user can make.
inline const char noSpecialFiles[] = "Windows has no pipes, devices or links that any user can make among the files";
/// RLIMIT_FSIZE.
inline const char noSizeLimit[] = "Windows has no limit of a file's size that would play a full disk";

} // namespace systemLimits
