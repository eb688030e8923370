#include "store/text/code_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <iconv.h>
#include <utility>
#include <vector>

namespace
{

constexpr char16_t kMeaningless = 0xFFFD;
constexpr unsigned kAscii = 0x80;

/// A conversion of the C library, closed when done.
class Converter
{
public:
    Converter(const char* to, const char* from) : m_state{iconv_open(to, from)} {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter()
    {
        if (isOpen())
            iconv_close(m_state);
    }

    // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how iconv_open says that it failed
    bool isOpen() const { return m_state != reinterpret_cast<iconv_t>(-1); }

    /// Converts as much of `input` as has a meaning, moving it forward; the rest begins with what has none.
    std::string convert(std::string_view& input) const
    {
        std::string result;
        iconv(m_state, nullptr, nullptr, nullptr, nullptr);
        char buffer[512];
        auto* from = const_cast<char*>(input.data());
        size_t left = input.size();
        for (bool flushing = false;;)
        {
            char* to = buffer;
            size_t room = sizeof buffer;
            const size_t status =
                flushing ? iconv(m_state, nullptr, nullptr, &to, &room) : iconv(m_state, &from, &left, &to, &room);
            result.append(buffer, static_cast<size_t>(to - buffer));
            const bool full = status == static_cast<size_t>(-1) && errno == E2BIG;
            if (!full && flushing)
                break;
            flushing = flushing || !full;
        }
        input.remove_prefix(input.size() - left);
        return result;
    }

    /// Whether a byte is the first of several that mean something only together.
    bool isLead(char byte) const
    {
        iconv(m_state, nullptr, nullptr, nullptr, nullptr);
        char buffer[16];
        char* from = &byte;
        char* to = buffer;
        size_t left = 1;
        size_t room = sizeof buffer;
        return iconv(m_state, &from, &left, &to, &room) == static_cast<size_t>(-1) && errno == EINVAL;
    }

private:
    iconv_t m_state;
};

std::u16string unitsOf(std::string_view utf16le)
{
    std::u16string text;
    for (size_t i = 0; i + 1 < utf16le.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(utf16le[i]) |
                                      static_cast<unsigned char>(utf16le[i + 1]) << 8);
    return text;
}

/// The C library's name of a code page.
std::string converterName(std::string_view codePage)
{
    std::string name;
    for (const char c : codePage)
        name += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (name.starts_with("ANSI_") || name.starts_with("DOS_"))
        name = "CP" + name.substr(name.find('_') + 1);
    else if (name.starts_with("DOS") || name.starts_with("ANSI"))
        name = "CP" + name.substr(name.find_first_of("0123456789"));
    else if (name.starts_with("ISO8859") || name.starts_with("ISO_8859"))
        name = "ISO-8859-" + name.substr(std::min(name.size(), name.find_last_not_of("0123456789") + 1));
    return name == "CP950" ? "BIG5" : name == "CP936" ? "GBK" : name == "CP949" ? "UHC" : name;
}

class SingleByteCodePage : public CodePage
{
public:
    /// Each byte is asked for by itself, so that the C library has nothing to join it with.
    explicit SingleByteCodePage(const Converter& toUnits)
    {
        for (unsigned byte = 0; byte < m_units.size(); ++byte)
        {
            const char single = static_cast<char>(byte);
            std::string_view input{&single, 1};
            const std::u16string units = byte < kAscii ? std::u16string(1, byte) : unitsOf(toUnits.convert(input));
            m_units[byte] = units.size() == 1 ? units.front() : kMeaningless;
            if (byte >= kAscii && m_units[byte] != kMeaningless)
                m_bytes.emplace_back(m_units[byte], single);
        }
        std::sort(m_bytes.begin(), m_bytes.end());
    }

    std::u16string decode(std::string_view bytes) const override
    {
        std::u16string text(bytes.size(), u' ');
        std::transform(bytes.begin(), bytes.end(), text.begin(),
                       [this](char byte) { return m_units[static_cast<unsigned char>(byte)]; });
        return text;
    }

    std::string encode(char16_t unit) const override
    {
        const auto found = std::lower_bound(m_bytes.begin(), m_bytes.end(), std::pair{unit, '\0'},
                                            [](const auto& a, const auto& b) { return a.first < b.first; });
        return found != m_bytes.end() && found->first == unit ? std::string(1, found->second) : std::string{};
    }

    bool isSingleByte() const override { return true; }

private:
    std::array<char16_t, 256> m_units{};
    std::vector<std::pair<char16_t, char>> m_bytes; ///< of the units beyond ASCII, by unit
};

class MultiByteCodePage : public CodePage
{
public:
    explicit MultiByteCodePage(const std::string& name)
        : m_toUnits{"UTF-16LE", name.c_str()}, m_toBytes{name.c_str(), "UTF-16LE"}
    {
    }

    std::u16string decode(std::string_view bytes) const override
    {
        std::u16string text;
        while (!bytes.empty())
        {
            text += unitsOf(m_toUnits.convert(bytes));
            if (!bytes.empty())
            {
                text += kMeaningless;
                bytes.remove_prefix(1);
            }
        }
        return text;
    }

    std::string encode(char16_t unit) const override
    {
        const char pair[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        std::string_view input{pair, sizeof pair};
        std::string bytes = unit >= 0xD800 && unit < 0xE000 ? std::string{} : m_toBytes.convert(input);
        return input.empty() ? bytes : std::string{};
    }

    bool isSingleByte() const override { return false; }

private:
    Converter m_toUnits;
    Converter m_toBytes;
};

bool hasLeads(const Converter& toUnits)
{
    for (unsigned byte = kAscii; byte < 0x100; ++byte)
        if (toUnits.isLead(static_cast<char>(byte)))
            return true;
    return false;
}

} // namespace

std::unique_ptr<const CodePage> CodePage::find(std::string_view name)
{
    // The C library takes an empty name for the locale's, and what follows a slash for wishes.
    if (name.empty() || name.find('/') != name.npos)
        return nullptr;
    const std::string converter = converterName(name);
    const Converter toUnits{"UTF-16LE", converter.c_str()};
    if (!toUnits.isOpen())
        return nullptr;
    if (hasLeads(toUnits))
        return std::make_unique<MultiByteCodePage>(converter);
    return std::make_unique<SingleByteCodePage>(toUnits);
}
