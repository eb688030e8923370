#pragma once

#include "survey/model/survey.h"

#include <string>

namespace survey
{

/// Gives every section that has no alignment one: that named `alignment` (empty: the only one there is), at the station
/// that the section states, else a straight one made for them, which is told. Sections whose station the alignment has
/// nowhere, or twice, become findings and go. Coded points of sections become points of the survey, too.
void placeSections(Survey& survey, const std::u16string& alignment);

} // namespace survey
