#pragma once

#include "road.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

using Handle = std::uint64_t;

/// The releases that can be written, oldest first.
enum class Release
{
    R2000,
    R2004,
    R2007,
    R2010,
    R2013,
    R2018
};

/// What a finished drawing amounts to. Its header and class list need the figures before the entities are written, so
/// a drawing is run twice: once to count, once to write.
struct Totals
{
    Handle handSeed = 0x1000;
    std::int64_t bytes = 0;
    int entities = 0;
    int alignments = 0;
    int points = 0;
    int codedPolylines = 0;
    int sections = 0;
    Box extents;
};

/// Writes the tags of a text DXF file through a buffer, gives out handles and keeps the totals. Without a file it only
/// counts. A failed write throws std::runtime_error.
class DxfOut
{
public:
    DxfOut(std::FILE* file, Release release, Handle firstHandle);

    void Tag(int code, std::string_view ascii);
    void Tag(int code, int value);
    /// A real rounded to at most 9 `decimals`, without trailing zeros.
    void Real(int code, double value, int decimals = 4);
    void Hex(int code, Handle handle);
    /// Text in the file's own form: UTF-8, or before R2007 the Vietnamese code page with \U+XXXX for the rest.
    void Text(int code, std::u16string_view text);
    /// A point at `code`, `code` + 10 and `code` + 20; with `z` absent only the first two.
    void At(int code, Point point);
    void At(int code, Point point, double z);

    Handle NewHandle() { return m_totals.handSeed++; }
    Release Version() const { return m_release; }
    Totals& Running() { return m_totals; }
    /// Sends what is buffered to the file.
    void Flush();

private:
    void Code(int code);
    void Append(std::string_view bytes);
    void EndLine();

    std::FILE* m_file;
    Release m_release;
    std::string m_buffer;
    Totals m_totals;
};
