#include "console/program/failure.h"

namespace console
{

void require(const UserAction& action)
{
    if (!action)
        throw Failure{action.reason()};
}

} // namespace console
