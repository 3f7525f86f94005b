#include "OrdinaryUser.h"

#include "AccessRights.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

/// Rights hold for administrators, too, but not where Windows is played by a program that the superuser runs.
bool rightsHold()
{
    const QTemporaryDir folder;
    setAccess(folder.path(), Access::NoWriting);
    const bool refused = !QFile(folder.filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly);
    setAccess(folder.path(), Access::Everything);
    return refused;
}

} // namespace

// Nobody has to become another one here.
OrdinaryUser::OrdinaryUser() = default;

OrdinaryUser::~OrdinaryUser() = default; // NOLINT(performance-trivially-destructible): not on every system

bool OrdinaryUser::isOrdinary() const
{
    return rightsHold();
}
