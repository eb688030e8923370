#pragma once

#include "dxf_out.h"

#include <cstdint>
#include <string>

/// What the user asked for. Counts of -1 follow from the length of the road; a length or a number of alignments of 0
/// follows from the other figures.
struct Options
{
    double km = 0;
    double megabytes = 0;
    std::uint64_t seed = 1;
    int points = -1;
    int polylines = -1;
    int sections = -1;
    int alignments = 0;
    Release release = Release::R2013;
    std::string out;
    std::string library;
    std::string table;
    bool help = false;
};

/// Reads the command line. Throws std::invalid_argument with a message for the user.
Options ParseOptions(int argc, char** argv);

/// The text of --help.
const char* HelpText();

/// Fills in what was left open, so that every figure is set.
Options Complete(Options options);
