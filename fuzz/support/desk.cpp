#include "fuzz/support/desk.h"

#include "files/dxf/error.h"
#include "files/dxf/reader.h"
#include "files/dxf/writer.h"
#include "frame/entry/module.h"
#include "fuzz/support/check.h"
#include "host/db/database.h"
#include "sections/database_cs.h"
#include "support/temp_folder.h"
#include "support/test_drawing.h"

namespace
{

const TempFolder& ownFolder()
{
    static const TempFolder folder;
    return folder;
}

FileText fileText(std::string_view bytes)
{
    const auto copy = std::make_shared<const std::string>(bytes);
    return {std::shared_ptr<const char>{copy, copy->data()}, copy->size()};
}

} // namespace

Desk::Desk()
{
    ledger() = {};
    clearFolder();
    host::SessionOptions options;
    options.userDataFolder = folder() + "/settings";
    m_session.emplace(m_reader, m_writer, m_frontEnd, std::move(options));
    m_session->loadModule(&acrxEntryPoint, folder() + "/Veloxa.arx");
}

Desk::~Desk()
{
    m_session.reset();
    const std::string left = ledger().describe();
    mustHold(left.empty(), left.c_str());
}

bool Desk::open(std::string_view bytes)
{
    std::unique_ptr<AcDbDatabase> drawing = readDrawing(bytes, DrawingReader::Purpose::Drawing);
    if (drawing == nullptr)
        return false;
    m_session->documents().add(std::move(drawing), modulePath("drawing.dxf"));
    return true;
}

void Desk::command(std::u16string_view name)
{
    mustHold(m_session->runCommand(name), "a command of the module is there");
}

std::string Desk::folder()
{
    return ownFolder().path().string();
}

void Desk::clearFolder()
{
    for (const auto& entry : std::filesystem::directory_iterator{ownFolder().path()})
        std::filesystem::remove_all(entry.path());
}

std::u16string Desk::modulePath(const std::string& name)
{
    return ownFolder().modulePath(name);
}

void Desk::write(const std::string& name, std::string_view bytes)
{
    ownFolder().write(name, std::string{bytes});
}

std::string Desk::read(const std::string& name)
{
    return ownFolder().read(name);
}

std::string emptyDrawing()
{
    return TestDrawing{1015}.dxf();
}

std::string smallRoad()
{
    TestDrawing road;
    road.style("MADIAVATTN", "Vnsimple.shx").layer("MA");
    road.beginBlock("TREE").line({0, 0, 0}, {0, 1, 0});
    road.endBlock();
    TestAlignment& first = road.alignment("T1");
    first.section("C1", {0, 20}, {0, -20}).ground({{-20, 3}, {5, 4}, {20, 2}}).point("COT", {0, -4, 1});
    first.section("C2", {30, 20}, {30, -20}).ground({{-20, 3}, {20, 4}}).dcOffsets({-3, 3});
    road.alignment("T2").section("D1", {60, 10}, {60, -10}).ground({{-10, 1}, {10, 1}}).point("DC1", {60, 3, 1});
    road.feature("MUONG", {{-10, 3}, {40, 3}, {40, -6}, {-10, -6}});
    road.feature2d("RAO", {{-10, 8}, {70, 8}});
    road.feature3d("Mép đường", {{-10, -2, 1}, {70, -2, 1}});
    road.insert("TREE", {2, 5, 0}, "CAY");
    road.point("GIENG", {31, -7, 2});
    return road.dxf();
}

std::unique_ptr<AcDbDatabase> readDrawing(std::string_view bytes, DrawingReader::Purpose purpose)
{
    try
    {
        auto drawing = std::make_unique<AcDbDatabase>();
        drawing->adopt(files::readDxf(fileText(bytes), "drawing.dxf", purpose));
        return drawing;
    }
    catch (const files::FileError& error)
    {
        mustHold(std::string_view{error.what()}.starts_with("drawing.dxf: "), "a refusal names the file");
        return nullptr;
    }
}

std::string savedAs(AcDbDatabase& drawing)
{
    std::string bytes;
    const files::DrawingPieces pieces{drawing};
    for (const std::string_view piece : pieces.pieces())
        bytes += piece;
    return bytes;
}

void giveSymbols(const std::u16string& file)
{
    g_DatabaseCS.m_arrDrawFlags.assign(kDrawOptionCount, 1);
    g_DatabaseCS.m_arrLayerNames = {u"", u"MA", u"KH", u"0"};
    for (ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        for (CrossSectionXdata& section : line.m_listCrossSections)
        {
            for (ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
                for (BlockData& row : *rows)
                    row.m_strFile = file;
            for (ListBlockFcode* rows : {&section.m_listBlockFcode1, &section.m_listBlockFcode2})
                for (BlockFcode& row : *rows)
                    row.m_strFile = file;
        }
}
