#include "files/dwg/answer.h"

#include <charconv>

namespace dwg
{

namespace
{

constexpr std::string_view kOk = "ok";
constexpr std::string_view kRefused = "refused ";

std::string_view takeWord(std::string_view& text)
{
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(text.size(), end + 1));
    return word;
}

} // namespace

std::string answerOf(const Outcome& outcome)
{
    if (!outcome.ok())
        return std::string(kRefused) + outcome.reason;
    std::string answer(kOk);
    for (const auto& [kind, count] : outcome.lost)
        answer += " " + kind + " " + std::to_string(count);
    return answer;
}

std::optional<Outcome> outcomeOf(std::string_view answer)
{
    Outcome outcome;
    if (answer.starts_with(kRefused) && answer.size() > kRefused.size())
    {
        outcome.reason = answer.substr(kRefused.size());
        return outcome;
    }
    if (takeWord(answer) != kOk)
        return std::nullopt;
    while (!answer.empty())
    {
        const std::string kind(takeWord(answer));
        const std::string_view count = takeWord(answer);
        std::size_t& lost = outcome.lost[kind];
        if (std::from_chars(count.data(), count.data() + count.size(), lost).ec != std::errc{})
            return std::nullopt;
    }
    return outcome;
}

} // namespace dwg
