#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "picture/text/mtext.h"
#include "picture/text/text_codes.h"
#include "store/pair_edit.h"

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
AcGeMatrix3d slant(double angle)
{
    AcGeMatrix3d map;
    map.entry[0][1] = std::tan(std::clamp(angle, -1.5, 1.5));
    return map;
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
Vertex alignmentOf(const TextValues& values, const Font& font, std::u16string_view text)
{
    constexpr int kMiddle = 4;
    constexpr double kDescent = 0.3;
    const double advance = advanceOf(font, text);
    Vertex shift;
    if (values.horizontal == 1 || values.horizontal == kMiddle)
        shift.x = -advance / 2;
    else if (values.horizontal == 2)
        shift.x = -advance;
    if (values.horizontal == kMiddle && values.vertical == 0)
    {
        const Box2d ink = inkOf(font, text);
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

void EntityWriter::writeLine(std::u16string_view text, const Font& font, const AcGeMatrix3d& placed)
{
    const Map2d map = Map2d::planOf(m_toList * placed);
    if (text.empty() || !isUsable({map.dx, map.dy}) || !(map.stretch() > 0.0) || !(map.stretch() < 1e30))
        return;
    PlacedText line;
    line.at = {map.dx, map.dy};
    line.acrossX = static_cast<float>(map.xx);
    line.acrossY = static_cast<float>(map.yx);
    line.upX = static_cast<float>(map.xy);
    line.upY = static_cast<float>(map.yy);
    line.advance = static_cast<float>(advanceOf(font, text));
    m_list.addText(m_look, line, text, font, inkOf(font, text));
}

void EntityWriter::writeText(std::string_view pairs)
{
    constexpr int kHidden = 1;
    constexpr int kConstant = 2;
    constexpr int kBackwards = 2;
    constexpr int kUpsideDown = 4;
    const TextValues values{pairs};
    const bool isInBlock = &m_list != &m_lists.list(0);
    if (values.isAttribute && (values.attribute & kHidden) != 0)
        return;
    if (values.isDefinition && isInBlock && (values.attribute & kConstant) == 0)
        return;
    const TextStyle& style = m_lists.styles().style(values.style);
    const bool showsTag = values.isDefinition && !isInBlock;
    const PlainText plain = withoutCodes(m_lists.database().encoding().decode(showsTag ? values.tag : values.text));
    const std::u16string text = m_lists.styles().read(plain.text, style.face);
    const Font& font = m_lists.styles().fontFor(style.face, text);
    double height = values.height;
    double stretch = values.widthFactor > 0.0 ? values.widthFactor : style.widthFactor;
    double rotation = values.rotation;
    const bool isByFirst = values.horizontal == 0 && values.vertical == 0;
    AcGePoint3d at = isByFirst || values.isAligned() ? values.first : values.second;
    if (values.isAligned())
    {
        // Between two points: as high as it must be to fill the way, or only as wide.
        const AcGeVector3d way = values.second - values.first;
        const double advance = advanceOf(font, text);
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
    const Vertex shift = alignmentOf(values, font, text);
    const AcGeMatrix3d placed = AcGeMatrix3d::planeToWorld(values.normal) * AcGeMatrix3d::translation(at.asVector()) *
                                AcGeMatrix3d::rotation(rotation) * AcGeMatrix3d::scaling(mirrorX, mirrorY, 1.0) *
                                slant(values.hasOblique ? values.oblique : style.oblique) *
                                AcGeMatrix3d::scaling(height * stretch, height, height) *
                                AcGeMatrix3d::translation({shift.x, shift.y, 0.0});
    writeLine(text, font, placed);
    // A code unit is a character here: what 8-bit texts become keeps their length.
    const auto rule = [&](const std::vector<PlainText::Range>& ranges, double y)
    {
        for (const PlainText::Range& range : ranges)
        {
            const double begin = advanceOf(font, std::u16string_view{text}.substr(0, range.first));
            const double end = advanceOf(font, std::u16string_view{text}.substr(0, range.end));
            writePath({placed * AcGePoint3d{begin, y, 0.0}, placed * AcGePoint3d{end, y, 0.0}}, false);
        }
    };
    rule(plain.underlined, -0.2);
    rule(plain.overlined, 1.2);
}

void EntityWriter::writeMText(std::string_view pairs)
{
    std::string bytes;
    std::string_view styleName = "Standard";
    AcGePoint3d at;
    AcGeVector3d along{1.0, 0.0, 0.0};
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    bool hasDirection = false;
    double rotation = 0.0;
    MTextFrame frame;
    OwnPairs reader{pairs};
    for (Tag tag; reader.next(tag);)
        switch (tag.code)
        {
        case 1:
        case 3:
            bytes += tag.value;
            break;
        case 7:
            styleName = tag.word();
            break;
        case 10:
            at = reader.pointFrom(tag);
            break;
        case 11:
            along = reader.pointFrom(tag).asVector();
            hasDirection = true;
            break;
        case 40:
            frame.height = tag.real();
            break;
        case 41:
            frame.width = tag.real();
            break;
        case 44:
            frame.lineSpacing = tag.real() > 0.0 ? tag.real() : 1.0;
            break;
        case 50:
            rotation = radians(tag);
            hasDirection = false;
            break;
        case 71:
            frame.attachment = static_cast<int>(std::clamp<int64_t>(tag.integer(), 1, 9));
            break;
        case 210:
            normal = reader.pointFrom(tag).asVector();
            break;
        default:
            break;
        }
    const TextStyle& style = m_lists.styles().style(styleName);
    MTextFormat format;
    format.face = style.face;
    format.height = frame.height;
    format.widthFactor = style.widthFactor;
    format.oblique = style.oblique;
    const std::u16string text = m_lists.database().encoding().decode(bytes);
    const SetText set = setMText(parseMText(text, format, m_lists.styles()), frame, m_lists.styles());
    // The insertion point and the direction are the world's, the rotation is that of the text's plane.
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
    const AcGeVector3d direction = hasDirection ? AcGeMatrix3d::worldToPlane(normal) * along
                                                : AcGeVector3d{std::cos(rotation), std::sin(rotation), 0.0};
    const AcGeMatrix3d world =
        AcGeMatrix3d::translation(at.asVector()) * plane * AcGeMatrix3d::rotation(std::atan2(direction.y, direction.x));
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
        writeLine(run.text, *run.font,
                  world * AcGeMatrix3d::translation({run.at.x, run.at.y, 0.0}) * slant(run.format.oblique) *
                      AcGeMatrix3d::scaling(height * stretch, height, height));
    }
    for (const SetRule& rule : set.rules)
    {
        m_look = lookWith(rule.color);
        writePath({world * AcGePoint3d{rule.from.x, rule.from.y, 0.0}, world * AcGePoint3d{rule.to.x, rule.to.y, 0.0}},
                  false);
    }
    m_look = own;
}

} // namespace picture
