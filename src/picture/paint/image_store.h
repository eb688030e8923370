#pragma once

#include <QImage>

#include <string>

namespace picture
{

/// The picture in a file, read once and kept as long as few others were asked for since; a very large one made smaller.
/// Null when it cannot be read. For any thread.
QImage storedImage(const std::string& file);

} // namespace picture
