#pragma once

#include "picture/list/drawing_lists.h"
#include "picture/page/page.h"

#include <string>
#include <vector>

class PlxDbAlignment;

namespace picture
{

/// The alignments of a drawing, in its order.
AcDbObjectIdArray alignmentsOf(AcDbDatabase& database);

/// The pages of sections of an alignment (positions from 0). Each shows the section's own drawing: ground line, base
/// point and what was drawn on it, and the entities that touch these, short of what is the neighbours'. A section
/// without a ground line has a page that says so.
std::vector<Page> sectionPages(AcDbDatabase& database, const DisplayList& modelSpace, const PlxDbAlignment& alignment,
                               const std::vector<size_t>& positions);

} // namespace picture
