#pragma once

#include "AccessRights.h"

#include <QString>

/// Helpers that set up faults of a save location. All of them end the program if they fail, because the test would then
/// test nothing.

/// Ends the program with a message that names `what` if the operation failed.
void checkFault(bool done, const char* what);

/// Returns the path of `name` in `folder`.
QString at(const QString& folder, const char* name);

/// Creates a file with the text "contents" and returns `path`.
QString addFile(const QString& path, Access access = Access::Everything);

/// Creates the folder if it does not exist, sets its access rights and returns `path`.
QString addFolder(const QString& path, Access access = Access::Everything);
