#pragma once

#include "files/dwg/outcome.h"

#include <filesystem>
#include <string>
#include <vector>

namespace dwg
{

/// One conversion for the adapter: the DXF stands in `output` afterwards, unless `outcome` has a reason why not.
struct Job
{
    std::filesystem::path input;
    std::filesystem::path output;
    Outcome outcome = {};
    bool isLasting = false; ///< the same file under the same limits would come to the same
};

/// A text that differs between two versions of the converter whose results could differ, and between two sets of
/// limits.
std::string adapterVersion(const Options& options);

/// Runs the converter over `jobs` under the limits of `options`. A job that crashes the converter or takes too long is
/// given up; the rest go on in a new process.
void runAdapter(const Options& options, const std::vector<Job*>& jobs);

} // namespace dwg
