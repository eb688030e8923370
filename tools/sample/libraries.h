#pragma once

#include <string>

/// Writes the feature library (.dv) that gives the sample's names and codes their symbols: text of one byte a
/// character in the 8-bit Vietnamese form. Throws std::runtime_error when the file cannot be written.
void WriteLibrary(const std::string& path);

/// Writes the plan feature-code table (.dvbd) of the sample's point codes, with the same errors.
void WritePlanTable(const std::string& path);
