#pragma once

#include "store/text/text.h"

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

struct CrossSectionXdata;

namespace console
{

/// The kinds of names that a row of a library or table gives a symbol to.
enum FeatureKind : size_t
{
    kNames,        ///< features on the sections
    kSectionCodes, ///< coded points on the sections
    kPlanCodes,    ///< coded points of the sections, on the plan
    kTableCodes,   ///< all coded points of the plan, which a plan table is about
    kFeatureKindCount
};

/// Some of the kinds.
using FeatureKinds = std::array<bool, kFeatureKindCount>;
inline constexpr FeatureKinds kAllKinds{true, true, true, true};

/// How often each symbol file, or none (empty), goes with a name.
using CountByFile = std::map<std::u16string, size_t>;
/// The same for each name, by the rule by which the module compares names.
using FilesByName = std::map<std::u16string, CountByFile, LessNoCase>;

/// What the rows of some sections are about.
struct FeatureCounts
{
    std::array<FilesByName, kFeatureKindCount> kinds;
    std::array<std::set<std::u16string>, kFeatureKindCount> texts; ///< the names in every way they are written

    void add(FeatureKind kind, const std::u16string& name, const std::u16string& file, size_t count = 1);
    void add(const CrossSectionXdata& section, const FeatureKinds& wanted = kAllKinds);
    /// Each symbol file once.
    std::vector<std::u16string> files() const;
};

/// The features and codes of a section under which the module finds no ground, each name once.
std::vector<std::string> withoutGround(const CrossSectionXdata& section);

} // namespace console
