#pragma once

#include "survey/model/alignment_line.h"

#include <string>
#include <vector>

/// Stations as they are stated on plans: counted from the alignment's first, anew behind every station equation.

namespace survey
{

struct Station
{
    double value = 0.0;      ///< metres
    size_t region = 1;       ///< how many station equations lie before it, and 1
    bool isRepeated = false; ///< another region has the same value: the region must be named too
};

/// The station at a distance along the line; at an equation, that of the region it begins.
Station stationAt(const AlignmentLine& line, double distance);

/// Every distance along the line that has this station, rising; none when no region has it.
std::vector<double> distancesOf(const AlignmentLine& line, double station);

/// The station as text, "Km1+234.50", and "(2)" behind it for a region that has to be named.
std::u16string stationText(const Station& station);

} // namespace survey
