#pragma once

namespace host
{

/// Makes the classes of the host and its companions known to the database; more than once does no harm.
void registerClasses();

} // namespace host
