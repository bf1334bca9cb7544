#include "tests/support/ordinary_user.h"

#include <unistd.h>

OrdinaryUser::OrdinaryUser() {
    constexpr uid_t kNobody = 65534;
    wasAdministrator_ = ::geteuid() == 0 && ::seteuid(kNobody) == 0;
}

OrdinaryUser::~OrdinaryUser() {
    if (wasAdministrator_ && ::seteuid(0) != 0)
        ::_exit(1);  // what follows would fail for reasons that nobody finds
}
