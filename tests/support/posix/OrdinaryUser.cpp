#include "OrdinaryUser.h"

#include <QtGlobal>

#include <unistd.h>

namespace {
const uid_t nobody = 65534;
}

OrdinaryUser::OrdinaryUser()
    : m_user(geteuid())
{
    if (m_user == 0 && seteuid(nobody) != 0)
        qWarning("Cannot become an ordinary user");
}

OrdinaryUser::~OrdinaryUser()
{
    if (seteuid(m_user) != 0)
        qFatal("Cannot become the first user again");
}

bool OrdinaryUser::isOrdinary() const
{
    return geteuid() != 0;
}
