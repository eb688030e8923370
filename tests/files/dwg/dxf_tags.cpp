#include "files/dwg/dxf_tags.h"

#include <charconv>

namespace
{

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \r");
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(" \r") + 1 - first);
}

std::string_view takeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return trimmed(line);
}

} // namespace

std::string DxfRecord::value(int code) const
{
    const auto found = values.find(code);
    return found == values.end() ? "" : found->second;
}

std::vector<DxfRecord> recordsOf(std::string_view dxf)
{
    std::vector<DxfRecord> records;
    std::string section;
    while (!dxf.empty())
    {
        const std::string_view codeText = takeLine(dxf);
        const std::string value(takeLine(dxf));
        int code = -1;
        std::from_chars(codeText.data(), codeText.data() + codeText.size(), code);
        if (code == 0)
        {
            records.push_back({section, value, {}, {}});
            continue;
        }
        if (records.empty())
            continue;
        DxfRecord& record = records.back();
        if (record.type == "SECTION" && code == 2)
            section = value;
        if (record.handle.empty() && (code == 5 || code == 105))
            record.handle = value;
        record.values.emplace(code, value);
    }
    return records;
}
