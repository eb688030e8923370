#include "desktop/render/render_options.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace desktop
{

namespace
{

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

/// The numbers of a list with commas; nothing when it is none.
std::vector<double> numbersOf(const std::string& list)
{
    std::vector<double> numbers;
    const char* at = list.data();
    const char* const end = list.data() + list.size();
    while (true)
    {
        double value = 0.0;
        const auto [next, error] = std::from_chars(at, end, value);
        if (error != std::errc{} || !std::isfinite(value))
            return {};
        numbers.push_back(value);
        if (next == end)
            return numbers;
        if (*next != ',')
            return {};
        at = next + 1;
    }
}

picture::PageOptions::Size paperOf(const std::string& name)
{
    static const std::map<std::string, picture::PageOptions::Size> sizes{
        {"a0", {1189, 841}}, {"a1", {841, 594}}, {"a2", {594, 420}}, {"a3", {420, 297}}, {"a4", {297, 210}}};
    std::string plain = lowerCase(name);
    const bool upright = plain.ends_with("p");
    if (upright)
        plain.pop_back();
    const auto size = sizes.find(plain);
    if (size == sizes.end())
        throw UsageError{"--paper: \"" + name + "\" is none of A4, A3, A2, A1, A0 (with p behind it: upright)"};
    return upright ? picture::PageOptions::Size{size->second.height, size->second.width} : size->second;
}

double scaleOf(const std::string& text)
{
    const std::vector<double> numbers = numbersOf(text.starts_with("1:") ? text.substr(2) : text);
    if (numbers.size() != 1 || !(numbers[0] > 0.0))
        throw UsageError{"--scale: \"" + text + "\" is no scale such as 1:200"};
    return numbers[0];
}

void readBackground(const std::string& name, picture::PageOptions& options)
{
    const std::string plain = lowerCase(name);
    unsigned color = 0;
    if (plain == "white" || plain.empty())
        return;
    options.isTransparent = plain == "transparent";
    if (plain == "black")
        options.background = 0x000000;
    else if (plain.size() == 7 && plain[0] == '#' &&
             std::from_chars(plain.data() + 1, plain.data() + 7, color, 16).ptr == plain.data() + 7)
        options.background = color;
    else if (!options.isTransparent)
        throw UsageError{"--background: \"" + name + "\" is none of white, black, transparent, #RRGGBB"};
}

} // namespace

PictureKind kindOfName(const std::string& name)
{
    const std::string plain = lowerCase(name);
    if (plain.ends_with(".png"))
        return PictureKind::kPng;
    if (plain.ends_with(".svg"))
        return PictureKind::kSvg;
    if (plain.ends_with(".pdf"))
        return PictureKind::kPdf;
    throw UsageError{"\"" + name + "\" is no picture: its name must end with .svg, .pdf or .png"};
}

std::string endingOf(PictureKind kind)
{
    return kind == PictureKind::kPng ? ".png" : kind == PictureKind::kSvg ? ".svg" : ".pdf";
}

picture::PageOptions pageOptions(const RenderArguments& arguments, PictureKind kind)
{
    picture::PageOptions options;
    if (!arguments.paper.empty())
        options.paper = paperOf(arguments.paper);
    else if (kind == PictureKind::kPdf || !arguments.scale.empty())
        options.paper = paperOf("a4");
    if (!arguments.scale.empty())
        options.scale = scaleOf(arguments.scale);
    if (!arguments.pixels.empty())
    {
        const std::vector<double> size = numbersOf(arguments.pixels);
        if (size.size() != 2 || !(std::min(size[0], size[1]) >= 1.0) || std::max(size[0], size[1]) > 30'000.0)
            throw UsageError{"--pixels: \"" + arguments.pixels + "\" is no size such as 1600,1000"};
        if (options.paper)
            throw UsageError{"--pixels is for pictures without --paper and --scale, and not for PDF"};
        options.pixels = {size[0], size[1]};
    }
    if (arguments.dpi != 0.0 && (!(arguments.dpi >= 10.0) || !(arguments.dpi <= 2400.0)))
        throw UsageError{"--dpi: from 10 to 2400"};
    if (arguments.dpi != 0.0 && !options.paper)
        throw UsageError{"--dpi says something only with --paper or --scale"};
    options.dpi = arguments.dpi;
    options.isMonochrome = arguments.monochrome;
    readBackground(arguments.background, options);
    return options;
}

std::optional<Box2d> windowOf(const RenderArguments& arguments)
{
    if (arguments.window.empty())
        return std::nullopt;
    const std::vector<double> corners = numbersOf(arguments.window);
    if (corners.size() != 4 || corners[0] == corners[2] || corners[1] == corners[3])
        throw UsageError{"--window: \"" + arguments.window + "\" is no window such as 0,0,100,50"};
    Box2d window;
    window.add(corners[0], corners[1]);
    window.add(corners[2], corners[3]);
    return window;
}

} // namespace desktop
