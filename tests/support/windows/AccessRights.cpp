#include "AccessRights.h"

#include <QDir>

#include <string>

#include <windows.h>

#include <aclapi.h>

namespace {

EXPLICIT_ACCESSW entryForEverybody(ACCESS_MODE mode, DWORD rights)
{
    static SID everybody = {SID_REVISION, 1, SECURITY_WORLD_SID_AUTHORITY, {SECURITY_WORLD_RID}};
    EXPLICIT_ACCESSW entry = {};
    entry.grfAccessPermissions = rights;
    entry.grfAccessMode = mode;
    entry.grfInheritance = NO_INHERITANCE;
    entry.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    entry.Trustee.TrusteeType = TRUSTEE_IS_WELL_KNOWN_GROUP;
    entry.Trustee.ptstrName = reinterpret_cast<LPWSTR>(&everybody);
    return entry;
}

/// Allows everything that is not denied. The right to change the access rights is never denied, so that they can be
/// restored.
DWORD refusedRights(Access access)
{
    const DWORD writing = FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_DELETE_CHILD;
    switch (access) {
    case Access::Everything:
        break;
    case Access::NoWriting:
        return writing;
    case Access::Nothing:
        return writing | FILE_READ_DATA | FILE_EXECUTE;
    }
    return 0;
}

} // namespace

void setAccess(const QString& path, Access access)
{
    EXPLICIT_ACCESSW entries[] = {entryForEverybody(GRANT_ACCESS, FILE_ALL_ACCESS & ~refusedRights(access)),
                                  entryForEverybody(DENY_ACCESS, refusedRights(access))};
    ACL* list = nullptr;
    DWORD result = SetEntriesInAclW(refusedRights(access) == 0 ? 1 : 2, entries, nullptr, &list);
    if (result == ERROR_SUCCESS) {
        std::wstring name = QDir::toNativeSeparators(path).toStdWString();
        result = SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                       DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr,
                                       nullptr, list, nullptr);
        LocalFree(list);
    }
    if (result != ERROR_SUCCESS)
        qFatal("Cannot change who may use %s: error %lu", qPrintable(path), result);
}
