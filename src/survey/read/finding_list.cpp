#include "survey/read/finding_list.h"

#include "store/text/text.h"

#include <algorithm>

namespace survey
{

void FindingList::add(FindingKind kind, uint32_t firstLine, uint32_t lastLine, const std::string& text)
{
    lastLine = std::max(firstLine, lastLine);
    if (!m_survey.findings.empty())
    {
        Finding& before = m_survey.findings.back();
        const bool isNext = firstLine >= before.first.line && firstLine <= before.lastLine + 1;
        if (before.kind == kind && before.first.file == m_file && isNext && before.text == text)
        {
            before.lastLine = std::max(before.lastLine, lastLine);
            return;
        }
    }
    m_survey.findings.push_back({kind, place(firstLine), lastLine, text});
}

std::string quoted(std::u16string_view text)
{
    constexpr size_t kLongest = 60;
    const bool cut = text.size() > kLongest;
    return "\"" + toUtf8(text.substr(0, kLongest)) + (cut ? "..." : "") + "\"";
}

std::string quoted(std::string_view text)
{
    constexpr size_t kFarEnough = 400;
    return quoted(toUtf16(text.substr(0, kFarEnough)));
}

std::string counted(size_t count, const std::string& what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace survey
