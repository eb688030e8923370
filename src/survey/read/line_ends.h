#pragma once

#include "survey/model/survey.h"

namespace survey
{

/// Adds a line without vertices that repeat the one before; one that ends where it begins is closed. False, and nothing
/// is added, when that leaves no length.
bool addLine(Survey& survey, CodedLine line);

} // namespace survey
