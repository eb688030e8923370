#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace picture
{

/// A line of a document's outline and the page (from 0) that it leads to.
struct OutlineEntry
{
    std::u16string title;
    size_t page = 0;
};

/// The PDF with an outline, which is added behind it as a change of its catalogue. The PDF is one of plain objects with
/// one table of places, as the writer of this program makes them; another one comes back as it was.
std::string withOutline(std::string pdf, const std::vector<OutlineEntry>& entries);

} // namespace picture
