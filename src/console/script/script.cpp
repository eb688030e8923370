#include "console/script/script.h"

#include "console/program/program.h"

namespace console
{

namespace
{

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// Takes the quoted word that `line` starts with (behind its opening quote).
std::string takeQuoted(std::string_view& line, size_t number)
{
    std::string word;
    while (!line.empty())
    {
        const char c = line.front();
        line.remove_prefix(1);
        if (c != '"')
            word += c;
        else if (!line.empty() && line.front() == '"')
        {
            word += c;
            line.remove_prefix(1);
        }
        else
            return word;
    }
    throw Failure{"line " + std::to_string(number) + ": a quote is not closed"};
}

std::string takePlain(std::string_view& line)
{
    size_t length = 0;
    while (length < line.size() && !isBlank(line[length]))
        ++length;
    std::string word{line.substr(0, length)};
    line.remove_prefix(length);
    return word;
}

ScriptLine parseLine(std::string_view line, size_t number)
{
    ScriptLine result{number, {}};
    if (line.starts_with('#'))
        return result;
    for (;;)
    {
        while (!line.empty() && isBlank(line.front()))
            line.remove_prefix(1);
        if (line.empty())
            return result;
        if (line.front() == '"')
        {
            line.remove_prefix(1);
            result.words.push_back(takeQuoted(line, number));
        }
        else
            result.words.push_back(takePlain(line));
    }
}

} // namespace

std::vector<ScriptLine> parseScript(std::string_view text)
{
    std::vector<ScriptLine> lines;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    for (size_t number = 1; !text.empty(); ++number)
    {
        const size_t end = std::min(text.find('\n'), text.size());
        ScriptLine line = parseLine(text.substr(0, end), number);
        if (!line.words.empty())
            lines.push_back(std::move(line));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

} // namespace console
