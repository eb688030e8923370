#include "survey/read/utf8_text.h"

#include "disk/error.h"
#include "store/text/code_page.h"
#include "store/text/composing.h"
#include "store/text/text.h"
#include "survey/read/vietnamese_words.h"
#include "util/tcvn3.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>

namespace survey
{

namespace
{

constexpr const char* kUtf8 = "UTF-8";
constexpr const char* kTcvn3 = "TCVN3";
constexpr const char* kWindows1258 = "Windows-1258";
constexpr char16_t kMeaningless = 0xFFFD;
constexpr std::string_view kMeaninglessUtf8 = "\xEF\xBF\xBD";

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

/// Where the first byte beyond ASCII stands; the size when there is none.
size_t asciiLength(std::string_view bytes)
{
    constexpr uint64_t kBeyond = 0x8080808080808080;
    size_t at = 0;
    for (uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word)
    {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & kBeyond) != 0)
            break;
    }
    while (at < bytes.size() && isAscii(bytes[at]))
        ++at;
    return at;
}

/// The name without what names of encodings differ in: "CP-1258", "windows1258" and "Windows-1258" are one.
std::string plainName(std::string_view name)
{
    std::string plain;
    for (const char c : name)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return plain.starts_with("windows") ? "cp" + plain.substr(7) : plain;
}

disk::OwnBytes ownBytes(const std::string& text)
{
    std::shared_ptr<char> bytes{new char[text.size() + 1], std::default_delete<char[]>{}};
    std::memcpy(bytes.get(), text.data(), text.size());
    bytes.get()[text.size()] = '\n';
    return {bytes, text.size()};
}

/// Line by line: 8-bit Vietnamese has no character of several bytes, and no escapes in files of surveys.
std::u16string tcvn3Text(std::string_view bytes)
{
    std::string plain{bytes};
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return c >= 0 && c < 3; }, ' ');
    return DecodeText(plain);
}

std::u16string windows1258Text(std::string_view bytes)
{
    return composed(CodePage::find("CP1258")->decode(bytes));
}

std::u16string utf16Text(std::string_view bytes, bool bigEndian)
{
    std::u16string text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
    {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

/// The line of the character at an index.
template <class Text>
uint64_t lineOf(const Text& text, size_t at)
{
    return 1 + static_cast<uint64_t>(std::count(text.begin(), text.begin() + static_cast<ptrdiff_t>(at), '\n'));
}

/// The first line that is not ASCII, as both of the encodings have it.
[[noreturn]] void refuseTie(std::string_view bytes, const std::string& path)
{
    const size_t at = asciiLength(bytes);
    const size_t begin = bytes.rfind('\n', at) + 1;
    std::string_view line = bytes.substr(begin, bytes.find('\n', at) - begin);
    line = line.substr(0, line.find('\r'));
    throw disk::FileError{path, lineOf(bytes, at),
                          "the text may be 8-bit Vietnamese, \"" + toUtf8(tcvn3Text(line)) + "\", or Windows-1258, \"" +
                              toUtf8(windows1258Text(line)) + "\": say which with --encoding"};
}

/// How well a reading of the text goes as Vietnamese: more words, and of as many those with fewer others.
std::pair<size_t, ptrdiff_t> worth(std::u16string_view text)
{
    const WordCounts counts = countWords(text);
    return {counts.vietnamese, -static_cast<ptrdiff_t>(counts.other)};
}

Utf8Text guessed(const disk::OwnBytes& bytes, const std::string& path)
{
    const std::u16string tcvn3 = tcvn3Text(bytes.view());
    const std::u16string windows1258 = windows1258Text(bytes.view());
    const auto asTcvn3 = worth(tcvn3);
    const auto asWindows = worth(windows1258);
    if (asTcvn3.first == asWindows.first)
        refuseTie(bytes.view(), path);
    const bool isTcvn3 = asTcvn3 > asWindows;
    return {ownBytes(toUtf8(isTcvn3 ? tcvn3 : windows1258)), isTcvn3 ? kTcvn3 : kWindows1258, true};
}

Utf8Text named(const disk::OwnBytes& bytes, const std::string& path, const std::string& encoding)
{
    const std::string name = plainName(encoding);
    if (name == "tcvn3" || name == "tcvn" || name == "vn3")
        return {ownBytes(toUtf8(tcvn3Text(bytes.view()))), kTcvn3};
    if (name == "utf16" || name == "utf16le" || name == "utf16be")
        return {ownBytes(toUtf8(utf16Text(bytes.view(), name == "utf16be"))), "UTF-16"};
    const std::unique_ptr<const CodePage> page =
        CodePage::find(name.starts_with("iso8859") ? "ISO-8859-" + name.substr(7) : name);
    if (page == nullptr)
        throw disk::FileError{path, "the encoding \"" + encoding + "\" is not known"};
    const std::u16string text = page->decode(bytes.view());
    if (const size_t at = text.find(kMeaningless); at != text.npos)
        throw disk::FileError{path, lineOf(text, at), "has bytes that are no character of " + encoding};
    return {ownBytes(toUtf8(composed(text))), name == "cp1258" ? kWindows1258 : encoding};
}

/// What a byte order mark says, with the mark taken off.
std::optional<Utf8Text> marked(const disk::OwnBytes& bytes)
{
    const std::string_view text = bytes.view();
    if (text.starts_with("\xEF\xBB\xBF"))
        return Utf8Text{{{bytes.bytes, bytes.bytes.get() + 3}, bytes.size - 3}, kUtf8};
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return Utf8Text{ownBytes(toUtf8(utf16Text(text.substr(2), text.front() == '\xFE'))), "UTF-16"};
    return std::nullopt;
}

} // namespace

size_t validUtf8(std::string_view bytes)
{
    for (size_t at = asciiLength(bytes); at < bytes.size(); at += asciiLength(bytes.substr(at)))
    {
        const auto* const begin = bytes.begin() + at;
        const std::string_view run{begin, std::find_if(begin, bytes.end(), isAscii)};
        if (toUtf16(run).find(kMeaningless) != std::u16string::npos && run.find(kMeaninglessUtf8) == run.npos)
            return at;
        at += run.size();
    }
    return bytes.size();
}

Utf8Text utf8Of(disk::OwnBytes bytes, const std::string& path, const std::string& encoding)
{
    if (std::optional<Utf8Text> text = marked(bytes))
        return *std::move(text);
    const std::string name = plainName(encoding);
    const bool isAsked = !name.empty() && name != "utf8" && name != "usascii" && name != "ascii";
    if (asciiLength(bytes.view()) == bytes.size && !name.starts_with("utf16"))
        return {std::move(bytes), isAsked ? encoding : kUtf8};
    if (isAsked)
        return named(bytes, path, encoding);
    const size_t valid = validUtf8(bytes.view());
    if (valid == bytes.size)
        return {std::move(bytes), kUtf8};
    if (!name.empty())
        throw disk::FileError{path, lineOf(bytes.view(), valid),
                              "has bytes that are no " + encoding + ", which it is said to be"};
    return guessed(bytes, path);
}

} // namespace survey
