#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// A DXF as plain records, for comparing two of them: enough for that, and independent of the program's own reader.
struct DxfRecord
{
    std::string section;
    std::string type;
    std::string handle;
    std::multimap<int, std::string> values;

    /// The first value of this group code, or an empty text.
    std::string value(int code) const;
};

std::vector<DxfRecord> recordsOf(std::string_view dxf);
