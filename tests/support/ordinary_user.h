#pragma once

/// While it lives, this process may do what any user may: an administrator's right to write
/// everywhere rests. Only where processes can lay it down for a while.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();  // NOLINT(performance-trivially-destructible): not on POSIX systems
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    [[maybe_unused]] bool wasAdministrator_ = false;
};
