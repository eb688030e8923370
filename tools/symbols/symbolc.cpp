#include "tools/symbols/symbol_dxf.h"
#include "tools/symbols/symbol_text.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

// symbolc SYMBOLS.txt FOLDER   writes one DXF drawing for each symbol into the folder
// symbolc SYMBOLS.txt          prints the table of symbols, in Markdown
namespace
{

void WriteDrawings(const std::vector<symbols::Symbol>& all, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const symbols::Symbol& symbol : all)
    {
        const std::filesystem::path path = folder / (symbol.name + ".dxf");
        std::ofstream file(path, std::ios::binary);
        file << symbols::SymbolDrawing(symbol);
        if (!file.flush())
            throw std::runtime_error("cannot write " + path.string());
    }
}

void Run(const char* source, const char* folder)
{
    std::ifstream text(source);
    if (!text)
        throw std::runtime_error("cannot be opened");
    const std::vector<symbols::Symbol> all = symbols::ReadSymbols(text);
    if (folder != nullptr)
        WriteDrawings(all, folder);
    else
        std::cout << symbols::SymbolTable(all);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 3)
    {
        std::cerr << "usage: symbolc SYMBOLS.txt [FOLDER]\n";
        return 2;
    }
    try
    {
        Run(argv[1], argc == 3 ? argv[2] : nullptr);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return 1;
    }
}
