#include "tests/support/ordinary_user.h"

OrdinaryUser::OrdinaryUser() = default;
OrdinaryUser::~OrdinaryUser() = default;
