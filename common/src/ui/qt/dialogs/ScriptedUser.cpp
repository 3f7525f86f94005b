#include "ui/qt/dialogs/ScriptedUser_p.h"

namespace zelmar::internal {

namespace {

ScriptedUser*& currentUser()
{
    static ScriptedUser* user = nullptr;
    return user;
}

} // namespace

ScriptedUser* ScriptedUser::current()
{
    return currentUser();
}

void ScriptedUser::setCurrent(ScriptedUser* user)
{
    currentUser() = user;
}

} // namespace zelmar::internal
