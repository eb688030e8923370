#include "tools/sample/dxf_records.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

std::vector<std::string> DxfRecord::All(int code) const
{
    std::vector<std::string> values;
    for (const auto& [tag, value] : tags)
        if (tag == code)
            values.push_back(value);
    return values;
}

std::string DxfRecord::First(int code) const
{
    const auto values = All(code);
    return values.empty() ? "" : values.front();
}

std::string DxfRecord::SurveyCode() const
{
    const auto start = std::find(tags.begin(), tags.end(), std::pair<int, std::string>{1001, "SV_INFOR"});
    if (tags.end() - start < 3 || (start + 1)->first != 1002 || (start + 2)->first != 1000)
        return "";
    return (start + 2)->second;
}

std::vector<DxfRecord> ReadDxfRecords(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<DxfRecord> records;
    std::string code;
    std::string value;
    while (std::getline(file, code) && std::getline(file, value))
    {
        if (std::stoi(code) == 0)
            records.push_back({value, {}});
        else
            records.back().tags.emplace_back(std::stoi(code), value);
    }
    if (records.empty() || records.back().type != "EOF")
        throw std::runtime_error(path + " is not a whole DXF file");
    return records;
}

std::vector<SectionTags> SectionsOf(const DxfRecord& alignment)
{
    std::vector<SectionTags> sections;
    for (const auto& [code, value] : alignment.tags)
    {
        if (code == 2)
            sections.push_back({value, 0, 0, 0, 0, 0, 0, "", {}, {}});
        else if (code == 340)
            sections.back().groundLine = value;
        else if (code == 330 && !sections.empty())
            sections.back().points.push_back(value);
        else if (code == 43)
            sections.back().dcOffsets.push_back(std::stod(value));
        else if (const std::map<int, double SectionTags::*> places{{10, &SectionTags::ax},
                                                                   {20, &SectionTags::ay},
                                                                   {11, &SectionTags::bx},
                                                                   {21, &SectionTags::by},
                                                                   {12, &SectionTags::baseX},
                                                                   {22, &SectionTags::baseY}};
                 places.contains(code))
            sections.back().*places.at(code) = std::stod(value);
    }
    return sections;
}
