#pragma once

#include <QtGlobal>

/// The limits of each system that make a test impossible there, as reasons for QSKIP. A constant is null if the limit
/// does not exist.
namespace systemLimits {

#ifdef Q_OS_WIN
inline const char* const noSpecialFiles =
    "Windows has no pipes, devices or links that any user can make among its files";
inline const char* const noOddNames = "Windows has no files whose names hold one of < > : \" | ? *";
inline const char* const noRefusedReading = "Wine can neither remove what may not be read nor give the right back";
inline const char* const noSizeLimit = "Windows has no limit of a file's size, which would play a full disk";
inline const char* const noFork = "Windows has no fork()";
inline const char* const noMouseSelection = "Windows has no selection beside the clipboard";
inline const char* const noSettingsFile = "Windows keeps settings in the registry and not in a file";
inline const char* const watchedFoldersStay = "Windows keeps a deleted folder as long as somebody watches it";
inline const char* const guiThreadHasApartment = "Qt enters the single-threaded apartment on Windows' GUI thread";
inline const char* const nativeDialogIsTheSystems =
    "Windows' native dialog is the system's, which has tests of its own";
#else
inline const char* const noSpecialFiles = nullptr;
inline const char* const noOddNames = nullptr;
inline const char* const noRefusedReading = nullptr;
inline const char* const noSizeLimit = nullptr;
inline const char* const noFork = nullptr;
inline const char* const noMouseSelection = nullptr;
inline const char* const noSettingsFile = nullptr;
inline const char* const watchedFoldersStay = nullptr;
inline const char* const guiThreadHasApartment = nullptr;
inline const char* const nativeDialogIsTheSystems = nullptr;
#endif

#ifdef _MSC_VER
inline const char* const noVirtualSlots =
    "Microsoft's compiler has pointers to virtual functions lead to code of its own";
#else
inline const char* const noVirtualSlots = nullptr;
#endif

} // namespace systemLimits
