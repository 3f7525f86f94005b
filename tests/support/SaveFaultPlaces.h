#pragma once

#include "AccessRights.h"

#include <QString>

/// What the faults of a place to save to are made of. All end the program when they cannot: a test without them would
/// test nothing.

/// Ends the program, naming `what`, when it was not done.
void checkFault(bool done, const char* what);

/// The path of `name` in `folder`.
QString at(const QString& folder, const char* name);

/// Makes a file with the text "contents"; returns `path`.
QString addFile(const QString& path, Access access = Access::Everything);

/// Makes the folder, if it is not there, and says who may use it; returns `path`.
QString addFolder(const QString& path, Access access = Access::Everything);
