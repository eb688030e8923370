#include "picture/text/system_font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QPainterPath>
#include <QRawFont>

#include <map>

namespace picture
{

namespace
{

/// The family that stands in for one that is not there: it has all Vietnamese letters.
constexpr const char* kSubstitute = "DejaVu Sans";

/// Outlines are asked for at this many pixels, large enough that their rounding does not show.
constexpr double kPixels = 512.0;

class OutlineFont : public Font
{
public:
    explicit OutlineFont(const QFont& font) : m_raw{QRawFont::fromFont(font)}
    {
        const double capital = m_raw.capHeight();
        m_scale = 1.0 / (capital > 0.0 ? capital : kPixels * 0.7);
    }

    const Glyph* find(char32_t character) const override
    {
        const auto known = m_glyphs.find(character);
        if (known != m_glyphs.end())
            return known->second.get();
        std::unique_ptr<Glyph>& fresh = m_glyphs[character];
        if (m_raw.supportsCharacter(static_cast<uint>(character)))
            fresh = std::make_unique<Glyph>(make(character));
        return fresh.get();
    }
    bool isFilled() const override { return true; }

private:
    Glyph make(char32_t character) const
    {
        Glyph glyph;
        const QList<quint32> indexes = m_raw.glyphIndexesForString(QString::fromUcs4(&character, 1));
        if (indexes.isEmpty())
            return glyph;
        glyph.advance = m_raw.advancesForGlyphIndexes(indexes).constFirst().x() * m_scale;
        for (const QPolygonF& outline : m_raw.pathForGlyph(indexes.constFirst()).toSubpathPolygons())
        {
            std::vector<Vertex>& path = glyph.paths.emplace_back();
            for (const QPointF& point : outline)
            {
                path.push_back({point.x() * m_scale, -point.y() * m_scale});
                glyph.ink.add(path.back().x, path.back().y);
            }
        }
        return glyph;
    }

    QRawFont m_raw;
    double m_scale = 1.0;
    mutable std::map<char32_t, std::unique_ptr<Glyph>> m_glyphs;
};

/// The families behind the files that drawings name most.
const std::map<std::string, std::string>& wellKnownFiles()
{
    static const std::map<std::string, std::string> families{
        {"arial", "Arial"},           {"arialbd", "Arial"},           {"ariali", "Arial"},
        {"times", "Times New Roman"}, {"timesbd", "Times New Roman"}, {"timesi", "Times New Roman"},
        {"cour", "Courier New"},      {"calibri", "Calibri"},         {"tahoma", "Tahoma"},
        {"verdana", "Verdana"},       {"vntime", ".VnTime"},          {"vntimeh", ".VnTimeH"},
        {"vnarial", ".VnArial"},      {"vnarialh", ".VnArialH"}};
    return families;
}

} // namespace

std::string familyOfFile(const std::string& file)
{
    std::string name = QString::fromStdString(file).toLower().toStdString();
    if (const size_t folder = name.find_last_of("/\\"); folder != std::string::npos)
        name.erase(0, folder + 1);
    if (const size_t dot = name.rfind('.'); dot != std::string::npos && dot > 0)
        name.erase(dot);
    const auto known = wellKnownFiles().find(name);
    return known != wellKnownFiles().end() ? known->second : name;
}

SystemFont findSystemFont(const std::string& family, bool bold, bool italic)
{
    const QString wanted = QString::fromStdString(family);
    QFont font{QFontDatabase::hasFamily(wanted) ? wanted : QString::fromLatin1(kSubstitute)};
    font.setPixelSize(static_cast<int>(kPixels));
    font.setBold(bold);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return {std::make_unique<OutlineFont>(font), QFontInfo{font}.family().toStdString()};
}

} // namespace picture
