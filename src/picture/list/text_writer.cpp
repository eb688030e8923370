#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "picture/text/text_codes.h"
#include "store/pair_edit.h"

#include <array>
#include <numbers>

namespace picture
{

namespace
{

double radians(const Tag& tag)
{
    return tag.real() * std::numbers::pi / 180.0;
}

/// A slant to the right by an angle.
Map2d slant(double angle)
{
    return {1.0, angle == 0.0 ? 0.0 : std::tan(std::clamp(angle, -1.5, 1.5)), 0.0, 1.0, 0.0, 0.0};
}

/// What a single-line text, an attribute or an attribute's definition says.
struct TextValues
{
    std::string_view text;
    std::string_view tag;
    std::string_view style = "Standard";
    AcGePoint3d first;
    AcGePoint3d second;
    double height = 0.0;
    double rotation = 0.0;
    double widthFactor = 0.0; ///< 0: the style's
    double oblique = 0.0;
    bool hasOblique = false;
    int mirror = 0;
    int horizontal = 0;
    int vertical = 0;
    int attribute = 0;
    bool isAttribute = false;
    bool isDefinition = false;
    AcGeVector3d normal = AcGeVector3d::kZAxis;

    explicit TextValues(std::string_view pairs);
    bool isAligned() const { return vertical == 0 && (horizontal == 3 || horizontal == 5); }
};

TextValues::TextValues(std::string_view pairs)
{
    OwnPairs reader{pairs};
    for (Tag t; reader.next(t);)
        switch (t.code)
        {
        case 0:
            isAttribute = t.word() != "TEXT";
            isDefinition = t.word() == "ATTDEF";
            break;
        case 1:
            text = t.value;
            break;
        case 2:
            tag = t.word();
            break;
        case 7:
            style = t.word();
            break;
        case 10:
            first = reader.pointFrom(t);
            break;
        case 11:
            second = reader.pointFrom(t);
            break;
        case 40:
            height = t.real();
            break;
        case 41:
            widthFactor = t.real();
            break;
        case 50:
            rotation = radians(t);
            break;
        case 51:
            oblique = radians(t);
            hasOblique = true;
            break;
        case 70:
            attribute = static_cast<int>(t.integer());
            break;
        case 71:
            mirror = static_cast<int>(t.integer());
            break;
        case 72:
            horizontal = static_cast<int>(t.integer());
            break;
        case 73:
            vertical = isAttribute ? vertical : static_cast<int>(t.integer());
            break;
        case 74:
            vertical = isAttribute ? static_cast<int>(t.integer()) : vertical;
            break;
        case 210:
            normal = reader.pointFrom(t).asVector();
            break;
        default:
            break;
        }
}

/// How far the text is moved, in units of its height and of what it is wide, so that its alignment point comes to the
/// origin.
Vertex alignmentOf(const TextValues& values, const TextExtent& extent)
{
    constexpr int kMiddle = 4;
    constexpr double kDescent = 0.3;
    const double advance = extent.advance;
    Vertex shift;
    if (values.horizontal == 1 || values.horizontal == kMiddle)
        shift.x = -advance / 2;
    else if (values.horizontal == 2)
        shift.x = -advance;
    if (values.horizontal == kMiddle && values.vertical == 0)
    {
        const Box2d& ink = extent.ink;
        shift.y = ink.isEmpty() ? -0.5 : -(ink.minY + ink.maxY) / 2;
    }
    else if (values.vertical == 1)
        shift.y = kDescent;
    else if (values.vertical == 2)
        shift.y = -0.5;
    else if (values.vertical == 3)
        shift.y = -1.0;
    return shift;
}

} // namespace

Map2d EntityWriter::planeAt(const AcGePoint3d& at, const AcGeVector3d& normal) const
{
    if (m_isPlain && normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0)
        return Map2d::translation({at.x, at.y});
    return Map2d::planOf(m_toList * AcGeMatrix3d::planeToWorld(normal) * AcGeMatrix3d::translation(at.asVector()));
}

Map2d EntityWriter::worldAt(const AcGePoint3d& at) const
{
    return planeAt(at, AcGeVector3d::kZAxis);
}

void EntityWriter::writeRule(const Map2d& placed, const Vertex& from, const Vertex& to)
{
    const std::array<Vertex, 2> rule{placed * from, placed * to};
    if (isUsable(rule[0]) && isUsable(rule[1]))
        m_list.add(Primitive::kPath, m_look, rule);
}

void EntityWriter::writeLine(std::u16string_view text, const Font& font, const TextExtent& extent, const Map2d& map)
{
    if (text.empty() || !isUsable({map.dx, map.dy}) || !(map.stretch() > 0.0) || !(map.stretch() < 1e30))
        return;
    PlacedText line;
    line.at = {map.dx, map.dy};
    line.acrossX = static_cast<float>(map.xx);
    line.acrossY = static_cast<float>(map.yx);
    line.upX = static_cast<float>(map.xy);
    line.upY = static_cast<float>(map.yy);
    line.advance = static_cast<float>(extent.advance);
    m_list.addText(m_look, line, text, font, extent.ink);
}

void EntityWriter::writeText(std::string_view pairs)
{
    constexpr int kHidden = 1;
    constexpr int kConstant = 2;
    constexpr int kBackwards = 2;
    constexpr int kUpsideDown = 4;
    const TextValues values{pairs};
    if (values.isAttribute && (values.attribute & kHidden) != 0)
        return;
    if (values.isDefinition && m_isBlock && (values.attribute & kConstant) == 0)
        return;
    const TextStyle& style = m_lists.styles().style(values.style);
    const bool showsTag = values.isDefinition && !m_isBlock;
    const PlainText plain = withoutCodes(m_lists.database().encoding().decode(showsTag ? values.tag : values.text));
    const std::u16string text = m_lists.styles().read(plain.text, style.face);
    const Font& font = m_lists.styles().fontFor(style.face, text);
    const TextExtent extent = extentOf(font, text);
    double height = values.height;
    double stretch = values.widthFactor > 0.0 ? values.widthFactor : style.widthFactor;
    double rotation = values.rotation;
    const bool isByFirst = values.horizontal == 0 && values.vertical == 0;
    AcGePoint3d at = isByFirst || values.isAligned() ? values.first : values.second;
    if (values.isAligned())
    {
        // Between two points: as high as it must be to fill the way, or only as wide.
        const AcGeVector3d way = values.second - values.first;
        const double advance = extent.advance;
        rotation = std::atan2(way.y, way.x);
        if (!(advance > 0.0) || !(way.length() > 0.0))
            return;
        if (values.horizontal == 3)
            height = way.length() / (advance * stretch);
        else
            stretch = way.length() / (advance * height);
    }
    const double mirrorX = (values.mirror & kBackwards) != 0 ? -1.0 : 1.0;
    const double mirrorY = (values.mirror & kUpsideDown) != 0 ? -1.0 : 1.0;
    const Map2d placed = planeAt(at, values.normal) * Map2d::rotation(rotation) * Map2d::scaling(mirrorX, mirrorY) *
                         slant(values.hasOblique ? values.oblique : style.oblique) *
                         Map2d::scaling(height * stretch, height) * Map2d::translation(alignmentOf(values, extent));
    writeLine(text, font, extent, placed);
    // A code unit is a character here: what 8-bit texts become keeps their length.
    const auto rule = [&](const std::vector<PlainText::Range>& ranges, double y)
    {
        for (const PlainText::Range& range : ranges)
        {
            const double begin = extentOf(font, std::u16string_view{text}.substr(0, range.first)).advance;
            const double end = extentOf(font, std::u16string_view{text}.substr(0, range.end)).advance;
            writeRule(placed, {begin, y}, {end, y});
        }
    };
    rule(plain.underlined, -0.2);
    rule(plain.overlined, 1.2);
}

void EntityWriter::writeMText(std::string_view pairs)
{
    MTextValues values;
    OwnPairs reader{pairs};
    for (Tag tag; reader.next(tag);)
        switch (tag.code)
        {
        case 1:
        case 3:
            values.bytes += tag.value;
            break;
        case 7:
            values.style = tag.word();
            break;
        case 10:
            values.at = reader.pointFrom(tag);
            break;
        case 11:
            values.along = reader.pointFrom(tag).asVector();
            values.hasDirection = true;
            break;
        case 40:
            values.frame.height = tag.real();
            break;
        case 41:
            values.frame.width = tag.real();
            break;
        case 44:
            values.frame.lineSpacing = tag.real() > 0.0 ? tag.real() : 1.0;
            break;
        case 50:
            values.rotation = radians(tag);
            values.hasDirection = false;
            break;
        case 71:
            values.frame.attachment = static_cast<int>(std::clamp<int64_t>(tag.integer(), 1, 9));
            break;
        case 210:
            values.normal = reader.pointFrom(tag).asVector();
            break;
        default:
            break;
        }
    writeMTextValues(values);
}

void EntityWriter::writeMTextValues(const MTextValues& values)
{
    const MTextFrame& frame = values.frame;
    const AcGeVector3d& normal = values.normal;
    const TextStyle& style = m_lists.styles().style(values.style);
    MTextFormat format;
    format.face = style.face;
    format.height = frame.height;
    format.widthFactor = style.widthFactor;
    format.oblique = style.oblique;
    const std::u16string text = m_lists.database().encoding().decode(values.bytes);
    const SetText set = setMText(parseMText(text, format, m_lists.styles()), frame, m_lists.styles());
    // The insertion point and the direction are the world's, the rotation is that of the text's plane.
    const AcGeVector3d direction = values.hasDirection
                                       ? AcGeMatrix3d::worldToPlane(normal) * values.along
                                       : AcGeVector3d{std::cos(values.rotation), std::sin(values.rotation), 0.0};
    const Map2d turned = planeAt(AcGeMatrix3d::worldToPlane(normal) * values.at, normal) *
                         Map2d::rotation(std::atan2(direction.y, direction.x));
    const uint32_t own = m_look;
    const auto lookWith = [&](const std::optional<Color>& color)
    {
        Look look = m_lists.looks().look(own);
        look.color = color.value_or(look.color);
        return m_lists.looks().indexOf(look);
    };
    for (const SetRun& run : set.runs)
    {
        m_look = lookWith(run.format.color);
        const double height = run.format.height;
        const double stretch = run.format.widthFactor * run.format.tracking;
        writeLine(run.text, *run.font, extentOf(*run.font, run.text),
                  turned * Map2d::translation(run.at) * slant(run.format.oblique) *
                      Map2d::scaling(height * stretch, height));
    }
    for (const SetRule& rule : set.rules)
    {
        m_look = lookWith(rule.color);
        writeRule(turned, rule.from, rule.to);
    }
    m_look = own;
}

} // namespace picture
