#pragma once

#include <map>
#include <string>
#include <vector>

/// A DXF file taken apart into its records, as plainly as can be: a list of tags from each group code 0 to the next.
struct DxfRecord
{
    std::string type;
    std::vector<std::pair<int, std::string>> tags;

    /// The values of a group code in order.
    std::vector<std::string> All(int code) const;
    /// The first value of a group code, empty when there is none.
    std::string First(int code) const;
    double Number(int code) const { return std::stod(First(code)); }
    /// The feature code kept as extended data, empty when there is none.
    std::string SurveyCode() const;
};

/// Reads the file at `path`; throws std::runtime_error for one that is not pairs of lines ending in EOF.
std::vector<DxfRecord> ReadDxfRecords(const std::string& path);

/// One cross-section of an alignment record.
struct SectionTags
{
    std::string name;
    double ax, ay, bx, by, baseX, baseY;
    std::string groundLine;
    std::vector<std::string> points;
    std::vector<double> dcOffsets;
};

std::vector<SectionTags> SectionsOf(const DxfRecord& alignment);
