// The user's settings (iniSymbol.cfg): read, used for drawing, written, read again.
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/lines.h"
#include "fuzz/support/mutator.h"
#include "host/ui/dialog.h"
#include "resources/control_ids.h"
#include "sectiondraw/veloxa_dlg.h"
#include "sections/database_cs.h"

#include <array>
#include <filesystem>

namespace
{

constexpr std::array<std::string_view, 15> kWords{"Forward distance",
                                                  "Backward distance",
                                                  "TextHei",
                                                  "DeltaY",
                                                  "Check Select",
                                                  "Path Select",
                                                  "Alignment",
                                                  "Section symbol layer",
                                                  "Draw Symbol Layer Name",
                                                  "Symbol ScaleX",
                                                  "Line Rotate",
                                                  "T2",
                                                  "5.000000",
                                                  "=",
                                                  "C:\\Symbols\\"};

/// What the settings are written as when they were read from what stands in the file now.
std::string rewritten()
{
    g_DatabaseCS = DatabaseCS{};
    g_DatabaseCS.LoadSettings();
    mustHold(g_DatabaseCS.SaveSettings(), "settings that were read can be written");
    return Desk::read("settings/iniSymbol.cfg");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string road = smallRoad();
    Desk desk;
    mustHold(desk.open(road), "the road is sound");
    std::filesystem::create_directories(Desk::folder() + "/settings");
    Desk::write("settings/iniSymbol.cfg", {reinterpret_cast<const char*>(data), size});
    const std::string settled = rewritten();
    mustHold(rewritten() == settled, "what is written comes back");
    desk.command(u"DSS");
    desk.command(u"ZE");
    mustBeDone(g_pVeloxaDlg->userClick(control_ids::sections::kDraw));
    mustHold(readDrawing(savedAs(desk.drawing()), DrawingReader::Purpose::Drawing) != nullptr,
             "the drawing can be read");
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return mutateLines(input, '=', kWords, seed);
}
