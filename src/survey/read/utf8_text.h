#pragma once

#include "disk/read.h"

#include <string>

namespace survey
{

/// A text file as UTF-8, and what it was.
struct Utf8Text
{
    disk::OwnBytes text;
    std::string encoding;
    bool isGuessed = false; ///< by how the words read: nothing said it
};

/// The text of a file, whose path is for messages. `encoding` is the name of one, of code pages in any usual form;
/// empty: by what the file begins with, else UTF-8 where it is valid, else 8-bit Vietnamese or Windows-1258, whichever
/// gives Vietnamese words. Throws FileError for an unknown name, for bytes that the encoding does not have, and when
/// neither of the two reads better.
Utf8Text utf8Of(disk::OwnBytes bytes, const std::string& path, const std::string& encoding);

/// How many of the bytes, from the first on, are valid UTF-8.
size_t validUtf8(std::string_view bytes);

} // namespace survey
