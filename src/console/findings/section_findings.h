#pragma once

#include "console/findings/feature_counts.h"

#include <map>
#include <string>
#include <vector>

struct ItemReferenceLine;

namespace console
{

/// A section, named for a person.
struct SectionName
{
    std::string alignment;
    std::string section;
};

/// A survey point that lies on side A of its section but has a positive offset, as if it lay on side B.
struct PointOnWrongSide
{
    SectionName place;
    std::string code;
    double offset;
    double distance; ///< off the section line
};

/// Rows of one name or code at one place of a section: each is drawn, one over the other.
struct CoincidingRows
{
    SectionName place;
    std::string name;
    double offset;
    size_t count;
};

/// A section whose line does not lie at height 0: all its offsets are positive.
struct RaisedSection
{
    SectionName place;
    double heightA;
    double heightB;
};

/// A rotation beyond a whole turn; radians are meant.
struct WideRotation
{
    FeatureKind kind;
    std::string name;
    double rotation;
};

/// Whether a rotation is beyond a whole turn, either way.
bool isWideRotation(double radians);

/// What is odd about the sections and their rows, gathered alignment by alignment.
struct SectionFindings
{
    size_t rows = 0;   ///< what is drawn on the sections
    size_t points = 0; ///< those of them that are survey points with a place
    std::vector<PointOnWrongSide> wrongSides;
    std::vector<CoincidingRows> coinciding;
    std::vector<RaisedSection> raised;
    std::map<std::pair<FeatureKind, std::u16string>, double> wideRotations;
    std::map<std::u16string, std::vector<SectionName>> sectionsOfFile; ///< that need it, by the path that rows have

    /// `drawn` are the kinds whose symbols are drawn on the alignment.
    void add(const ItemReferenceLine& line, const FeatureKinds& drawn);
    /// How many of the rows have another one under them.
    size_t superfluousRows() const;
};

} // namespace console
