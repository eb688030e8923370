#pragma once

#include "files/dwg/convert.h"

#include <filesystem>
#include <string>
#include <vector>

namespace dwg
{

/// One conversion for the adapter: the DXF stands in `output` afterwards, or `reason` tells why not.
struct Job
{
    std::filesystem::path input;
    std::filesystem::path output;
    std::string reason;
};

/// A text that differs between two versions of the converter whose results could differ.
std::string adapterVersion(const std::filesystem::path& adapter);

/// Runs the converter over `jobs` under the limits of `options`. A job that crashes the converter or takes too long is
/// given up; the rest go on in a new process.
void runAdapter(const Options& options, const std::vector<Job*>& jobs);

} // namespace dwg
