#pragma once

#include "picture/map2d.h"

#include <QString>

#include <optional>

struct CrossSectionXdata;

namespace desktop
{

/// Where a place of a section's own drawing lies on the section.
struct PlaceOnSection
{
    double offset;
    double height;                ///< over the datum
    std::optional<double> ground; ///< height of the ground there over the datum
};

/// Nothing for a section without a usable scale.
std::optional<PlaceOnSection> placeOnSection(const CrossSectionXdata& section, const picture::Vertex& place);

/// The elevation of the section's datum, as the elevations of its survey points and the ground line say together;
/// nothing where they do not agree within a few centimetres.
std::optional<double> datumOf(const CrossSectionXdata& section);

} // namespace desktop
