#pragma once

#include "picture/page/page.h"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace desktop
{

/// Wrong usage: exit status 2.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Something that cannot be done: exit status 1.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

enum class PictureKind
{
    kPng,
    kSvg,
    kPdf
};

/// What the command line says of a picture, as it says it.
struct RenderArguments
{
    std::vector<std::string> drawings;
    std::string output;
    std::string folder;
    std::string format;
    std::string window;
    std::string sections;
    std::string alignment;
    std::string paper;
    std::string scale;
    std::string pixels;
    std::string background;
    std::vector<std::string> layers;
    std::vector<std::string> fonts;
    double dpi = 0.0;
    bool monochrome = false;
};

/// The kind of picture by a file's ending; UsageError for another one.
PictureKind kindOfName(const std::string& name);
std::string endingOf(PictureKind kind);

/// What pages are made like. UsageError names what makes no sense.
picture::PageOptions pageOptions(const RenderArguments& arguments, PictureKind kind);
/// The window asked for, in drawing units.
std::optional<Box2d> windowOf(const RenderArguments& arguments);

} // namespace desktop
