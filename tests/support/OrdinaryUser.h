#pragma once

/// A guard that runs its scope as an ordinary user: it changes the effective user from the superuser to "nobody" and
/// back. Tests that run as root could not test denied access otherwise.
class OrdinaryUser
{
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    /// Returns whether the process has no superuser rights now. A test must check it, or it may test nothing.
    bool isOrdinary() const;

private:
    [[maybe_unused]] unsigned m_user = 0; ///< the user to restore, if the guard has changed it
};
