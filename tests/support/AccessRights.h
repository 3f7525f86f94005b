#pragma once

#include <QString>

/// What everybody, the owner included, may do with a file or with the entries of a folder. Only the superuser is not
/// stopped by it: see OrdinaryUser.
enum class Access {
    Everything,
    NoWriting, ///< Of a folder: no entry is added or removed.
    Nothing
};

/// Sets it, or ends the program: a test without it would test nothing.
void setAccess(const QString& path, Access access);
