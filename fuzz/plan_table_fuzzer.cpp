// A table of the plan's feature codes (.dvbd), and what the dialog was left with last (FcodeBD.cfg).
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/lines.h"
#include "fuzz/support/mutator.h"
#include "host/ui/dialog.h"
#include "resources/control_ids.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace
{

using namespace control_ids::table;

constexpr std::array<std::string_view, 8> kWords{"COT", "cot",  "DC1", "GIENG", "D:\\Symbols\\CAY.dwg",
                                                 "1",   "NULL", "#"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string road = smallRoad();
    std::string state{reinterpret_cast<const char*>(data), size};
    Desk desk;
    mustHold(desk.open(road), "the road is sound");
    Desk::write("in.dvbd", state);
    std::replace(state.begin(), state.end(), ',', '#');
    std::filesystem::create_directories(Desk::folder() + "/settings");
    Desk::write("settings/FcodeBD.cfg", state);
    for (const char* open : {"in.dvbd", "first.dvbd"})
        desk.frontEnd().plays.emplace_back(
            [&desk, open](CDialog& table)
            {
                desk.frontEnd().files.emplace_back(Desk::modulePath(open));
                mustBeDone(table.userClick(kOpenFile));
                desk.frontEnd().files.emplace_back(Desk::modulePath(open[0] == 'i' ? "first.dvbd" : "second.dvbd"));
                mustBeDone(table.userClick(kSaveFile));
                mustBeDone(table.userClick(IDOK));
            });
    desk.command(u"DVBD");
    const std::string kept = Desk::read("settings/FcodeBD.cfg");
    desk.command(u"DVBD");
    mustHold(Desk::read("first.dvbd") == Desk::read("second.dvbd"), "a saved table opens as it was");
    mustHold(Desk::read("settings/FcodeBD.cfg") == kept, "what is kept comes back");
    mustHold(readDrawing(savedAs(desk.drawing()), DrawingReader::Purpose::Drawing) != nullptr,
             "the drawing can be read");
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return mutateLines(input, ',', kWords, seed);
}
