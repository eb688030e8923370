#pragma once

#include "desktop/render/render_options.h"
#include "picture/list/drawing_lists.h"
#include "picture/page/page.h"

#include <stop_token>
#include <string>
#include <vector>

namespace desktop
{

/// A picture, and the file that it goes to.
struct PictureFile
{
    std::string path;
    std::string bytes;
};

/// The pages that the arguments ask of a drawing, for paper those with a title (`name` where they have none). Failure
/// for an alignment or sections that it does not have.
std::vector<picture::Page> pagesOf(const RenderArguments& arguments, picture::DrawingLists& lists,
                                   const std::u16string& name, bool forPaper);

/// The pictures that the arguments ask of a drawing; `name` is what it is called. Nothing is written. Needs a running
/// QGuiApplication. Failure, UsageError, or what rendering throws; StoppedWork when a stop is asked for between pages.
std::vector<PictureFile> makePictures(const RenderArguments& arguments, picture::DrawingLists& lists,
                                      const std::string& name, const std::string& output,
                                      const std::stop_token& stop = {});

/// Work that was asked to stop.
class StoppedWork : public std::runtime_error
{
public:
    StoppedWork() : std::runtime_error{"stopped"} {}
};

} // namespace desktop
