#pragma once

/// Runs its scope as a user who may not write everywhere: the superuser's effective user is changed to "nobody" and
/// back. Refused access cannot be tested otherwise where tests run as root.
class OrdinaryUser
{
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    /// Whether the process has no superuser rights now. A test that does not check it may test nothing.
    bool isOrdinary() const;

private:
    [[maybe_unused]] unsigned m_user = 0; ///< where there is another one to become again
};
