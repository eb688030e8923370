#pragma once

#include "console/text/json_text.h"

#include <string>
#include <vector>

namespace console
{

struct CheckReport;

/// One kind of thing that `check` found, and how often.
struct Finding
{
    std::string kind; ///< its name in JSON
    size_t count = 0;
    size_t of = 0; ///< among how many; 0 when that says nothing
    std::string text;
};

/// What the check comes to.
struct Verdict
{
    std::vector<Finding> stops;    ///< what keeps something from being drawn
    std::vector<Finding> warnings; ///< what is drawn, but perhaps not as it is meant; most important first
    std::string ready;             ///< what there is to draw

    bool isReady() const { return stops.empty(); }
    /// "Ready: ..." or "Not ready: ..." in one line.
    std::string line() const;
    /// That line, and one for each warning.
    std::string text() const;
    /// Members `ready`, `stops` and `warnings`.
    Json json() const;
};

Verdict verdictOf(const CheckReport& report);

} // namespace console
