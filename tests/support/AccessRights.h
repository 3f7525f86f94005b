#pragma once

#include <QString>

/// The access rights of all users, including the owner, to a file or to the entries of a folder. They do not restrict
/// the superuser: see OrdinaryUser.
enum class Access {
    Everything,
    NoWriting, ///< For a folder: entries can be neither added nor removed.
    Nothing
};

/// Sets the access rights. Ends the program if that fails, because the test would then test nothing.
void setAccess(const QString& path, Access access);
