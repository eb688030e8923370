#pragma once

#include "host/ui/user_action.h"

#include <cstdio>
#include <cstdlib>

/// What must hold whatever the input: the fuzzer reports an input that breaks it as it reports a crash.
inline void mustHold(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// The same for what a user does where nothing stands in the way.
inline void mustBeDone(const UserAction& action)
{
    if (!action)
        std::fprintf(stderr, "%s\n", action.reason().c_str());
    mustHold(static_cast<bool>(action), "the user can do it");
}
