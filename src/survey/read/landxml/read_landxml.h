#pragma once

#include "disk/read.h"
#include "survey/model/survey.h"
#include "survey/read/read_options.h"

namespace survey
{

/// Adds what a LandXML file has of points, lines, alignments, cross-sections and surfaces. `file` is the index of its
/// entry in `Survey::files`, `bytes` what it holds. A file that is no LandXML is a finding.
void readLandXml(Survey& survey, uint32_t file, disk::OwnBytes bytes, const ReadOptions& options);

} // namespace survey
