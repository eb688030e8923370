#pragma once

#include "store/numbers.h"

/// Numbers at the start of a text, for those who take of a text what they can.
namespace host
{
using dxf::leadingInteger;
using dxf::leadingReal;
} // namespace host
