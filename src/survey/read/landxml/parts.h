#pragma once

#include "survey/read/landxml/context.h"

/// The parts of a LandXML file, each put into the survey of the context. What cannot be used becomes a finding.

namespace survey::landxml
{

/// The points of CgPoints and the groups in it.
void readPoints(Context& context, const pugi::xml_node& cgPoints);

/// Alignments with their station equations and cross-sections.
void readAlignments(Context& context, const pugi::xml_node& alignments);

/// The cross-sections of the alignment at an index of `Survey::alignments`.
void readCrossSections(Context& context, const pugi::xml_node& crossSects, size_t alignment);

/// Triangles, points and lines of surfaces.
void readSurfaces(Context& context, const pugi::xml_node& surfaces);

/// Plan features as coded lines.
void readPlanFeatures(Context& context, const pugi::xml_node& planFeatures);

} // namespace survey::landxml
