#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/line/alignment_walk.h"
#include "survey/read/number_text.h"
#include "survey/read/section_order.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace survey::landxml
{

namespace
{

/// How likely a surface of a section is its ground, by what it says of itself.
int likenessToGround(const pugi::xml_node& surface)
{
    if (attributeOf(surface, "state") == "existing")
        return 3;
    constexpr std::array<std::u16string_view, 5> kWords{u"ground", u"exist", u"terrain", u"natural", u"tự nhiên"};
    const std::u16string text =
        toUtf16(std::string{attributeOf(surface, "name")} + " " + surface.attribute("desc").value());
    for (const std::u16string_view word : kWords)
        for (size_t at = 0; at < text.size(); ++at)
            if (startsWithNoCase(std::u16string_view{text}.substr(at), word))
                return 2;
    return attributeOf(surface, "state") == "proposed" ? 0 : 1;
}

/// The surface that is the ground: the first of the likeliest; none when the section has no surface.
pugi::xml_node groundOf(const pugi::xml_node& section)
{
    pugi::xml_node ground;
    for (const pugi::xml_node& child : section)
        if (isNamed(child, "CrossSectSurf") && (!ground || likenessToGround(child) > likenessToGround(ground)))
            ground = child;
    return ground;
}

void addPair(std::vector<SectionPoint>& piece, Context& context, double offset, double elevation,
             const pugi::xml_node& node, std::string_view code)
{
    SectionPoint& point = piece.emplace_back();
    point.offset = context.metres(offset);
    point.elevation = context.metres(elevation);
    point.code = toUtf16(code);
    point.place = context.placeOf(node);
}

/// A piece of a ground line: offsets and elevations by turns.
void readPiece(Context& context, const pugi::xml_node& list, GivenSection& section, const std::string& what)
{
    const auto numbers = context.numbersOf(list);
    if (!numbers)
        return;
    if (numbers->size() % 2 != 0)
    {
        context.unusable(list, what + ": a list of offsets and elevations has an odd number of them");
        return;
    }
    std::vector<SectionPoint> piece;
    for (size_t i = 0; i + 1 < numbers->size(); i += 2)
        addPair(piece, context, (*numbers)[i], (*numbers)[i + 1], list, {});
    if (!piece.empty())
        section.ground.push_back(std::move(piece));
}

/// The offset and elevation of a CrossSectPnt.
std::optional<std::array<double, 2>> offsetAndElevation(Context& context, const pugi::xml_node& node,
                                                        const std::string& what)
{
    const auto numbers = context.numbersOf(node);
    if (!numbers)
        return std::nullopt;
    if (numbers->size() == 2 && attributeOf(node, "dataFormat") != "Slope Distance")
        return std::array{(*numbers)[0], (*numbers)[1]};
    context.unusable(node, what + ": a CrossSectPnt is no offset and elevation");
    return std::nullopt;
}

void readGround(Context& context, const pugi::xml_node& surface, GivenSection& section, const std::string& what)
{
    std::vector<SectionPoint> single;
    for (const pugi::xml_node& child : surface)
        if (isNamed(child, "PntList2D"))
            readPiece(context, child, section, what);
        else if (isNamed(child, "CrossSectPnt"))
            if (const auto pair = offsetAndElevation(context, child, what))
                addPair(single, context, (*pair)[0], (*pair)[1], child, attributeOf(child, "code"));
    if (!single.empty())
        section.ground.push_back(std::move(single));
}

/// The outermost offsets of the design's surfaces.
std::vector<double> designEdges(Context& context, const pugi::xml_node& section, const std::string& what)
{
    std::vector<double> offsets;
    for (const pugi::xml_node& surface : section)
        if (isNamed(surface, "DesignCrossSectSurf"))
            for (const pugi::xml_node& point : surface)
                if (isNamed(point, "CrossSectPnt"))
                    if (const auto pair = offsetAndElevation(context, point, what))
                        offsets.push_back(context.metres((*pair)[0]));
    if (offsets.empty())
        return {};
    const auto [least, most] = std::minmax_element(offsets.begin(), offsets.end());
    return *least < *most ? std::vector{*least, *most} : std::vector<double>{};
}

/// By how much the section is turned from the right angle. One of about 90 degrees is meant from the line itself: a
/// section does not run along its road.
double skewOf(Context& context, const pugi::xml_node& node)
{
    const double skew =
        std::remainder(context.radians(context.numberOf(node, "angleSkew").value_or(0.0)), std::numbers::pi);
    constexpr double kQuarter = std::numbers::pi / 2.0;
    return std::fabs(skew) <= kQuarter / 1.5 ? skew : skew - std::copysign(kQuarter, skew);
}

void readSection(Context& context, const pugi::xml_node& node, size_t alignment)
{
    const AlignmentLine& line = context.survey().alignments[alignment];
    const std::string_view name =
        attributeOf(node, "name").empty() ? attributeOf(node, "sta") : attributeOf(node, "name");
    const std::string what = "cross-section " + quoted(name) + " of alignment " + quoted(line.name);
    const auto station = context.numberOf(node, "sta");
    if (!station)
    {
        if (attributeOf(node, "sta").empty())
            context.unusable(node, what + " has no station");
        return;
    }
    GivenSection section;
    section.name = toUtf16(attributeOf(node, "name"));
    section.alignment = alignment;
    section.distance = context.metres(*station) - line.startStation;
    section.skew = skewOf(context, node);
    section.place = context.placeOf(node);
    if (const pugi::xml_node ground = groundOf(node))
        readGround(context, ground, section, what);
    section.designEdges = designEdges(context, node, what);
    constexpr double kEndTolerance = 0.01;
    if (section.distance < -kEndTolerance || section.distance > lengthOf(line) + kEndTolerance)
        context.unusable(node, what + " lies outside of the alignment");
    else
        context.survey().sections.push_back(std::move(section));
}

/// Names of the surfaces that are not the ground of any section are told once.
void noteOtherSurfaces(Context& context, const pugi::xml_node& crossSects)
{
    for (const pugi::xml_node& section : crossSects)
        for (const pugi::xml_node& surface : section)
            if (isNamed(surface, "CrossSectSurf") && surface != groundOf(section))
            {
                context.note(surface, "the ground of the cross-sections is " +
                                          quoted(attributeOf(groundOf(section), "name")) +
                                          "; other surfaces, such as " + quoted(attributeOf(surface, "name")) +
                                          ", are not read");
                return;
            }
}

} // namespace

void readCrossSections(Context& context, const pugi::xml_node& crossSects, size_t alignment)
{
    const size_t before = context.survey().sections.size();
    for (const pugi::xml_node& node : crossSects)
        if (isNamed(node, "CrossSect"))
            readSection(context, node, alignment);
    for (size_t i = before; i < context.survey().sections.size(); ++i)
        orderGround(context.survey().sections[i]);
    noteOtherSurfaces(context, crossSects);
}

} // namespace survey::landxml
