#pragma once

#include "disk/read.h"
#include "survey/model/survey.h"
#include "survey/read/read_options.h"

namespace survey
{

/// Adds what a table of text has: points, or sections. `file` is the index of its entry in `Survey::files`, `bytes`
/// what it holds. Rows that cannot be used become findings. Throws FileError when its columns or its encoding cannot be
/// told.
void readTable(Survey& survey, uint32_t file, disk::OwnBytes bytes, const ReadOptions& options);

} // namespace survey
