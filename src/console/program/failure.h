#pragma once

#include "host/ui/user_action.h"

#include <stdexcept>

namespace console
{

/// Something the user asked for that cannot be done: one line for standard error, exit status 1.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Failure when a user could not have done it.
void require(const UserAction& action);

} // namespace console
