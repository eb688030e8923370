#pragma once

#include "host/db/object_id.h"
#include "sections/records.h"

#include <vector>

struct RememberedSettings;
struct SectionRecord;

/// The two halves of a scan: what a section's record lists, and what crosses sections.

/// Adds the rows of the survey points that a section's record lists, and the two default ones where none of the points
/// takes their place.
void AddSurveyPointRows(const SectionRecord& record, const RememberedSettings& remembered, CrossSectionXdata& section);

/// Adds to each section, in the order of `polylines`, a row for each of them that has a feature code and crosses the
/// section's search line. Each polyline is opened once.
void AddCrossingRows(const AcDbObjectIdArray& polylines, const RememberedSettings& remembered,
                     const std::vector<CrossSectionXdata*>& sections);
