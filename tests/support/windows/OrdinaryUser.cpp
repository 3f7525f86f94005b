#include "OrdinaryUser.h"

#include "AccessRights.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

/// Access rights restrict administrators as well, but not under Wine if the superuser runs it.
bool rightsHold()
{
    const QTemporaryDir folder;
    setAccess(folder.path(), Access::NoWriting);
    const bool refused = !QFile(folder.filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly);
    setAccess(folder.path(), Access::Everything);
    return refused;
}

} // namespace

// Windows needs no change of the user.
OrdinaryUser::OrdinaryUser() = default;

OrdinaryUser::~OrdinaryUser() = default; // NOLINT(performance-trivially-destructible): differs by system

bool OrdinaryUser::isOrdinary() const
{
    return rightsHold();
}
