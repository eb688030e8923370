#include "libraries.h"

#include "catalogue.h"

#include <fstream>
#include <set>
#include <stdexcept>

namespace
{
std::string Bytes(std::u16string_view form)
{
    std::string bytes;
    for (const char16_t unit : form)
        bytes += static_cast<char>(unit);
    return bytes;
}

/// The lines of a file, a key only once in each section.
class Lines
{
public:
    void Section(const std::string& marker)
    {
        m_text += marker + '\n';
        m_keys.clear();
    }

    /// A row for a code that has a symbol; others get none.
    void Row(std::u16string_view form, std::string_view symbol, const std::string& values)
    {
        if (symbol.empty() || !m_keys.insert(std::u16string(form)).second)
            return;
        m_text += Bytes(form) + ",symbols\\" + std::string(symbol) + ".dxf," + values + '\n';
    }

    void Save(const std::string& path) const
    {
        std::ofstream file(path, std::ios::binary);
        file << m_text;
        if (!file.flush())
            throw std::runtime_error(path + ": cannot be written");
    }

private:
    std::string m_text;
    std::set<std::u16string> m_keys;
};

void Rows(Lines& lines, std::span<const PointCode> codes, const std::string& values)
{
    for (const PointCode& code : codes)
        lines.Row(code.form, code.symbol, values);
}
} // namespace

void WriteLibrary(const std::string& path)
{
    const std::string onSection = "2.00,2.00,0.00";
    const std::string onPlan = "1.00,1.00,0.00";
    Lines lines;
    lines.Section("[SYMBOL]");
    for (const LineFeature& feature : LineFeatures())
        lines.Row(feature.form, feature.symbol, onSection);
    for (const CodedBlock& block : CodedBlocks())
        lines.Row(block.form, block.symbol, onSection);
    Rows(lines, EdgeCodes(), onSection);
    Rows(lines, RoadCodes(), onSection);
    Rows(lines, PointCodes(), onSection);
    lines.Section("[TN]");
    Rows(lines, RoadCodes(), onSection);
    Rows(lines, PointCodes(), onSection);
    lines.Section("[BD]");
    Rows(lines, RoadCodes(), onPlan);
    Rows(lines, PointCodes(), onPlan);
    lines.Save(path);
}

void WritePlanTable(const std::string& path)
{
    Lines lines;
    Rows(lines, EdgeCodes(), "1.00,1.00,0.00,0");
    Rows(lines, RoadCodes(), "1.00,1.00,0.00,0");
    for (const PointCode& code : PointCodes())
        lines.Row(code.form, code.symbol, code.code == u"NHA" ? "1.00,1.00,0.00,1" : "1.00,1.00,0.00,0");
    lines.Save(path);
}
