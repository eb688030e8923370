#pragma once

#include "catalogue.h"
#include "dxf_out.h"
#include "road.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Writes entities of model space, each with a handle of its own. Lengths are drawing units, angles degrees.
class Entities
{
public:
    explicit Entities(DxfOut& out) : m_out(out) {}

    DxfOut& Out() { return m_out; }

    /// Starts an entity of class `type`; the caller writes what follows the common codes.
    Handle Begin(std::string_view type, std::string_view layer);

    void Line(std::string_view layer, Point from, Point to);
    void Circle(std::string_view layer, Point centre, double radius);
    void Dot(std::string_view layer, Point at, double z);

    /// Horizontal place of a text at its point.
    enum class Align
    {
        Left,
        Centre,
        Middle
    };
    struct TextStyle
    {
        double height = 2;
        double rotation = 0;
        Align align = Align::Left;
        std::string_view style = "Standard";
    };
    void Text(std::string_view layer, Point at, std::u16string_view text, const TextStyle& style);

    Handle LightPolyline(std::string_view layer, std::span<const Vertex> line, bool closed,
                         std::u16string_view code = {}, double elevation = 0);
    /// A polyline of the class asked for; `code` is its survey information, empty for none.
    void Polyline(LineClass lineClass, std::string_view layer, std::span<const Vertex> line, bool closed,
                  std::u16string_view code);

    struct Placement
    {
        double scale = 1;
        double rotation = 0;
    };
    void Insert(std::string_view layer, std::string_view block, Point at, const Placement& placement,
                std::u16string_view code = {});

    /// A filled outline, solid or hatched at 45 degrees.
    void Hatch(std::string_view layer, std::span<const Vertex> outline, bool solid, int colour);

    Handle SurveyPoint(Point at, double z, std::u16string_view code);

private:
    void HeavyPolyline(LineClass lineClass, std::string_view layer, std::span<const Vertex> line, bool closed,
                       std::u16string_view code);
    void HeavyVertex(LineClass lineClass, std::string_view layer, Handle owner, const Vertex& vertex);
    void HatchBoundary(std::span<const Vertex> outline);
    void HatchPattern();
    void SurveyInfo(std::u16string_view code);

    DxfOut& m_out;
};

/// ASCII as wide text.
std::u16string Wide(std::string_view ascii);

/// A number with exactly `decimals` digits behind the point.
std::u16string Fixed(double value, int decimals);
