#pragma once

#include "host/app/session.h"

#include <string>
#include <vector>

namespace console
{

/// The damaged value that ends the work, with file, line and object; empty when there is none. What was only looked at
/// in passing ends it when it is a survey point, an alignment or something with a feature code, and a selection that
/// the work goes on with would have asked for its place.
std::string whatStopsTheWork(host::Session& session);

/// The objects that met nothing because a value in them is damaged: the first ones by name, the rest by number.
std::vector<std::string> damagedInPassing(host::Session& session);

} // namespace console
