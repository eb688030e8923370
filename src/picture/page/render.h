#pragma once

#include "picture/list/drawing_lists.h"
#include "picture/page/page.h"

#include <string>
#include <vector>

class QPagedPaintDevice;

namespace picture
{

/// The bytes of a picture file. They need a running QGuiApplication, and notes go to those of the lists. A picture that
/// would take more memory than there is for one throws std::runtime_error.
std::string renderPng(DrawingLists& lists, const Page& page, const PageOptions& options);
std::string renderSvg(DrawingLists& lists, const Page& page, const PageOptions& options);
/// One page each, on `options.paper`; several get a list of contents before them and an outline. `heading` stands above
/// the contents.
std::string renderPdf(DrawingLists& lists, const std::vector<Page>& pages, const PageOptions& options,
                      const std::u16string& heading);

/// The same onto the sheets of a device, a printer, which is set up for `options.paper` without margins.
void paintSheets(QPagedPaintDevice& device, DrawingLists& lists, const std::vector<Page>& pages,
                 const PageOptions& options, const std::u16string& heading);

} // namespace picture
