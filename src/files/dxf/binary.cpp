#include "files/dxf/binary.h"

#include "files/dxf/error.h"
#include "store/group_codes.h"
#include "store/tags.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace files
{

namespace
{

/// What every binary DXF file starts with: the format's own mark, 22 bytes.
constexpr char kMark[] = "AutoCAD Binary DXF\r\n\x1a";
constexpr size_t kMarkSize = sizeof kMark;

class BinaryReader
{
public:
    BinaryReader(std::string_view bytes, const std::string& path) : m_bytes{bytes}, m_path{path}, m_at{kMarkSize}
    {
        // Files older than R13 have group codes of one byte: the first group is then 0 followed at once by its text,
        // or a comment, whose code is written with the mark for longer ones.
        m_shortCodes =
            m_bytes.size() > m_at + 1 && ((m_bytes[m_at] == 0 && m_bytes[m_at + 1] != 0) || m_bytes[m_at] == '\xFF');
    }

    std::string run()
    {
        while (m_at < m_bytes.size())
        {
            const int code = readCode();
            if (!readValue(code))
                break;
        }
        return m_out.take();
    }

private:
    [[noreturn]] void fail(const char* reason) const
    {
        throw FileError{m_path, "byte " + std::to_string(m_at) + ": " + reason};
    }

    template <class T>
    T read()
    {
        if (m_bytes.size() - m_at < sizeof(T))
            fail("the file ends in the middle of a value: it is cut short");
        T value;
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += sizeof value;
        static_assert(std::endian::native == std::endian::little);
        return value;
    }

    int readCode()
    {
        if (!m_shortCodes)
            return read<int16_t>();
        const auto code = read<uint8_t>();
        return code == 255 ? read<int16_t>() : code;
    }

    std::string_view readText()
    {
        const size_t end = m_bytes.find('\0', m_at);
        if (end == std::string_view::npos)
            fail("a text has no end: the file is cut short");
        const std::string_view text = m_bytes.substr(m_at, end - m_at);
        m_at = end + 1;
        return text;
    }

    /// A text form has no line ends within a text: its control characters are written behind a caret.
    void writeText(int code, std::string_view text)
    {
        constexpr char kToLetter = 0x40;
        if (text.find_first_of("\r\n") == std::string_view::npos)
            return m_out.text(code, text);
        std::string oneLine;
        for (const char c : text)
            if (c == '\n' || c == '\r')
                oneLine.append({'^', static_cast<char>(c + kToLetter)});
            else
                oneLine += c;
        m_out.text(code, oneLine);
    }

    void readChunk(int code)
    {
        const auto size = read<uint8_t>();
        if (m_bytes.size() - m_at < size)
            fail("the file ends in the middle of a value: it is cut short");
        static constexpr char kDigits[] = "0123456789ABCDEF";
        std::string digits;
        for (size_t i = 0; i < size; ++i)
        {
            const auto byte = static_cast<unsigned char>(m_bytes[m_at + i]);
            digits += kDigits[byte >> 4];
            digits += kDigits[byte & 15];
        }
        m_at += size;
        m_out.text(code, digits);
    }

    /// What is no number stays none, for whoever reads it to find.
    void writeReal(int code, double value)
    {
        if (std::isfinite(value))
            m_out.real(code, value);
        else
            m_out.text(code, std::isnan(value) ? "nan" : value > 0.0 ? "inf" : "-inf");
    }

    /// False behind the drawing's EOF.
    bool readValue(int code)
    {
        switch (dxf::kindOf(code))
        {
        case dxf::ValueKind::Real:
            writeReal(code, read<double>());
            return true;
        case dxf::ValueKind::Int16:
            m_out.integer(code, read<int16_t>());
            return true;
        case dxf::ValueKind::Int32:
            m_out.integer(code, read<int32_t>());
            return true;
        case dxf::ValueKind::Int64:
            m_out.integer(code, read<int64_t>());
            return true;
        case dxf::ValueKind::Bool:
            m_out.integer(code, read<uint8_t>());
            return true;
        case dxf::ValueKind::Chunk:
            readChunk(code);
            return true;
        case dxf::ValueKind::None:
            fail("an unknown group code");
        case dxf::ValueKind::String:
        case dxf::ValueKind::Handle:
            break;
        }
        const std::string_view text = readText();
        writeText(code, text);
        return code != 0 || text != "EOF";
    }

    std::string_view m_bytes;
    const std::string& m_path;
    size_t m_at;
    bool m_shortCodes = false;
    TagWriter m_out;
};

} // namespace

bool isBinaryDxf(std::string_view bytes)
{
    return bytes.substr(0, kMarkSize) == std::string_view{kMark, kMarkSize};
}

FileText textOfBinaryDxf(std::string_view bytes, const std::string& path)
{
    const auto text = std::make_shared<const std::string>(BinaryReader{bytes, path}.run());
    return {std::shared_ptr<const char>{text, text->data()}, text->size()};
}

} // namespace files
