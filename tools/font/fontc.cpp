#include "tools/font/glyph_text.h"
#include "tools/font/shape_file.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

// fontc GLYPHS.txt FONT.shx   compiles the glyphs into a shape font
namespace
{

void Compile(const char* source, const char* target)
{
    std::ifstream text(source);
    if (!text)
        throw std::runtime_error("cannot be opened");
    const std::string bytes = font::ShapeFile(font::ReadGlyphs(text));
    std::ofstream file(target, std::ios::binary);
    file << bytes;
    if (!file.flush())
        throw std::runtime_error(std::string("cannot write ") + target);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::cerr << "usage: fontc GLYPHS.txt FONT.shx\n";
        return 2;
    }
    try
    {
        Compile(argv[1], argv[2]);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return 1;
    }
}
