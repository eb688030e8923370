#include "util/text_lines.h"

#include "host/app/disk.h"
#include "util/tcvn3.h"

#include <algorithm>

namespace
{

constexpr size_t kLongestPiece = 4095;

/// Line ends of both platforms as LF, before lines are measured: a file means the same wherever it was written.
void joinLineEnds(std::string& bytes)
{
    size_t kept = 0;
    for (size_t at = 0; at < bytes.size(); ++at)
    {
        if (bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n')
            continue;
        bytes[kept++] = bytes[at];
    }
    bytes.resize(kept);
}

/// Takes the next piece off `rest`: up to and with its LF, at most the longest piece.
std::string_view takePiece(std::string_view& rest)
{
    const std::string_view window = rest.substr(0, kLongestPiece);
    const size_t lineEnd = window.find('\n');
    const std::string_view piece = window.substr(0, lineEnd == std::string_view::npos ? lineEnd : lineEnd + 1);
    rest.remove_prefix(piece.size());
    return piece;
}

void cutLineEnd(std::u16string& line)
{
    if (line.ends_with(u"\r\n"))
        line.resize(line.size() - 2);
    else if (line.ends_with(u'\r') || line.ends_with(u'\n'))
        line.pop_back();
}

/// The bytes of a line with its end. What would end it early, or take the letters behind it, becomes "?".
std::string bytesOfLine(const std::u16string& line)
{
    std::string bytes = EncodeText(line);
    std::replace_if(
        bytes.begin(), bytes.end(), [](char byte) { return byte == '\n' || byte == '\r' || byte == 1 || byte == 2; },
        '?');
    return bytes + '\n';
}

} // namespace

std::vector<std::u16string> ReadTextLines(std::u16string_view path)
{
    return DecodeTextLines(ReadWholeFile(path).value_or(std::string{}));
}

std::vector<std::u16string> DecodeTextLines(std::string bytes)
{
    std::vector<std::u16string> lines;
    joinLineEnds(bytes);
    for (std::string_view rest = bytes; !rest.empty();)
    {
        std::u16string line = DecodeText(takePiece(rest));
        if (line.empty())
            continue;
        cutLineEnd(line);
        lines.push_back(std::move(line));
    }
    return lines;
}

bool WriteTextLines(std::u16string_view path, const std::vector<std::u16string>& lines)
{
    if (lines.empty())
        return true;
    std::string bytes;
    for (const std::u16string& line : lines)
        bytes += bytesOfLine(line);
    return ReplaceFile(path, bytes);
}
