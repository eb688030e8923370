// A feature library (.dv): opened by the settings dialog, saved, opened and saved again.
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/lines.h"
#include "fuzz/support/mutator.h"
#include "host/ui/dialog.h"
#include "resources/control_ids.h"
#include "sectiondraw/veloxa_dlg.h"

#include <array>

namespace
{

using namespace control_ids::table;

constexpr std::array<std::string_view, 12> kWords{"[SYMBOL]", "[TN]",  "[BD]",  "[ALL]",
                                                  "[symbol]", "MUONG", "RAO",   "CAY",
                                                  "COT",      "DC1",   "GIENG", "D:\\Symbols\\CAY.dwg"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string road = smallRoad();
    Desk desk;
    mustHold(desk.open(road), "the road is sound");
    Desk::write("in.dv", {reinterpret_cast<const char*>(data), size});
    desk.command(u"DSS");
    desk.command(u"ZE");
    desk.frontEnd().plays.emplace_back(
        [&desk](CDialog& settings)
        {
            mustBeDone(settings.userTab(0));
            for (const auto& [button, file] : {std::pair{kOpenFile, "in.dv"},
                                               {kSaveFile, "first.dv"},
                                               {kOpenFile, "first.dv"},
                                               {kSaveFile, "second.dv"}})
            {
                desk.frontEnd().files.emplace_back(Desk::modulePath(file));
                mustBeDone(settings.userClick(button));
            }
            mustBeDone(settings.userClick(IDOK));
        });
    mustBeDone(g_pVeloxaDlg->userClick(control_ids::sections::kSettings));
    mustHold(desk.frontEnd().plays.empty(), "the settings were opened");
    mustHold(Desk::read("first.dv") == Desk::read("second.dv"), "a saved library opens as it was");
    mustHold(readDrawing(savedAs(desk.drawing()), DrawingReader::Purpose::Drawing) != nullptr,
             "a drawing that keeps the settings can be read");
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return mutateLines(input, ',', kWords, seed);
}
