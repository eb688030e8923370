#pragma once

#include "desktop/documents/snapshot.h"
#include "desktop/render/render_options.h"

#include <memory>
#include <stop_token>
#include <string>
#include <vector>

class QPrinter;

namespace desktop
{

/// A drawing as it is at one moment, for a thread that makes pictures of it, and what it is called.
struct PictureSource
{
    std::shared_ptr<const Snapshot> drawing;
    std::string path;
};

/// What was made, and what the pictures do not show as the drawing has it.
struct PicturesMade
{
    std::vector<std::string> files;
    std::vector<std::string> notes;
};

/// Makes pictures and writes them; on any thread. All of them are made before the first one is written. Throws what
/// making and writing throw.
PicturesMade exportPictures(const PictureSource& source, const RenderArguments& arguments, const std::stop_token& stop);

/// Prints the pages; on any thread. The printer's paper is used.
PicturesMade printPictures(const PictureSource& source, const RenderArguments& arguments, QPrinter& printer);

} // namespace desktop
