#include "files/dxf/version.h"

#include <array>
#include <utility>

namespace files
{

std::string nameOfVersion(int version)
{
    static constexpr std::array<std::pair<int, const char*>, 12> kNames{{{1002, "R2.5"},
                                                                         {1004, "R9"},
                                                                         {1006, "R10"},
                                                                         {1009, "R12"},
                                                                         {1012, "R13"},
                                                                         {1014, "R14"},
                                                                         {1015, "R2000"},
                                                                         {1018, "R2004"},
                                                                         {1021, "R2007"},
                                                                         {1024, "R2010"},
                                                                         {1027, "R2013"},
                                                                         {1032, "R2018"}}};
    for (const auto& [number, name] : kNames)
        if (number == version)
            return name;
    return "AC" + std::to_string(version);
}

} // namespace files
