#pragma once

#include "dxf_out.h"
#include "options.h"

#include <cstdio>

/// Writes the whole drawing to `file`, or only counts when it is null. `expected` are the totals of a counting run;
/// the result is those of this one. Both are the same once the counting run is done.
Totals GenerateDrawing(std::FILE* file, const Options& options, const Totals& expected);
