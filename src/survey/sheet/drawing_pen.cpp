#include "survey/sheet/drawing_pen.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/db/entity/polyline.h"
#include "host/db/entity/survey_codes.h"
#include "host/db/entity/text_entity.h"
#include "store/block_index.h"
#include "store/table_index.h"

#include <array>
#include <stdexcept>

namespace survey
{

namespace
{

constexpr const char16_t* kTextStyle = u"TRAC_NGANG";
constexpr const char16_t* kFontFile = u"arial.ttf"; // has all Vietnamese letters; every system has it or a substitute
constexpr int kName = 1001;
constexpr int kString = 1000;
constexpr int kBracket = 1002;

AcDbObjectId modelSpace(AcDbDatabase& drawing)
{
    return AcDbObjectId{drawing.blocks().record(u"*Model_Space")};
}

void demand(Acad::ErrorStatus status)
{
    if (status != Acad::eOk)
        throw std::runtime_error{"the drawing does not take a new object (" + std::to_string(status) + ")"};
}

/// Hands a record to a table unless it has one of that name.
template <class Table, class Record>
AcDbObjectId ensure(AcDbDatabase& drawing, std::unique_ptr<Record> record)
{
    const AcDbObjectPointer<Table> table{drawing.tableId(Table::desc()), AcDb::kForWrite};
    demand(table.openStatus());
    AcDbObjectId id;
    if (table->getAt(record->getName(), id) == Acad::eOk)
        return id;
    demand(table->add(id, record.get()));
    record.release()->close();
    return id;
}

/// Extended data of one application: its name, then the texts.
void setData(AcDbEntity& entity, const char16_t* application, std::span<const std::pair<int, const char16_t*>> items)
{
    std::vector<resbuf> nodes(items.size() + 1);
    std::vector<std::u16string> texts{application};
    for (const auto& [code, text] : items)
        texts.emplace_back(text);
    for (size_t i = 0; i < nodes.size(); ++i)
    {
        nodes[i].restype = static_cast<int16_t>(i == 0 ? kName : items[i - 1].first);
        nodes[i].resval.rstring = texts[i].data();
        nodes[i].rbnext = i + 1 < nodes.size() ? &nodes[i + 1] : nullptr;
    }
    demand(entity.setXData(nodes.data()));
}

} // namespace

DrawingPen::DrawingPen(AcDbDatabase& drawing) : m_drawing{drawing}, m_space{modelSpace(drawing), AcDb::kForWrite}
{
    demand(m_space.openStatus());
    useApplication(kSurveyApplication);
    useApplication(kImportApplication);
    useTextStyle();
}

void DrawingPen::useApplication(const char16_t* name)
{
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    record->setName(name);
    ensure<AcDbRegAppTable>(m_drawing, std::move(record));
}

void DrawingPen::useTextStyle()
{
    auto record = std::make_unique<AcDbTextStyleTableRecord>();
    record->setName(kTextStyle);
    record->setFileName(kFontFile);
    m_textStyle = ensure<AcDbTextStyleTable>(m_drawing, std::move(record));
}

std::u16string DrawingPen::layer(const std::u16string& name, int color, const char16_t* linetype)
{
    constexpr size_t kLongestName = 255;
    std::u16string valid = name.substr(0, kLongestName);
    for (char16_t& unit : valid)
        if (!isValidSymbolName({&unit, 1}))
            unit = u'_';
    auto record = std::make_unique<AcDbLayerTableRecord>();
    record->setName(valid);
    AcCmColor palette;
    palette.setColorIndex(color);
    record->setColor(palette);
    if (linetype != nullptr)
        record->setLinetypeObjectId(AcDbObjectId{m_drawing.tables().find("LTYPE", linetype)});
    ensure<AcDbLayerTable>(m_drawing, std::move(record));
    return valid;
}

template <class T>
AcDbObjectId DrawingPen::add(const std::u16string& layer, std::unique_ptr<T> entity, const StoredCode& code)
{
    AcDbObjectId id;
    demand(m_space->appendAcDbEntity(id, entity.get()));
    T& added = *entity.release(); // the drawing's from here on
    demand(added.setLayer(layer));
    if (!code.empty())
        setData(added, kSurveyApplication,
                std::array{std::pair{kBracket, u"{"}, std::pair{kString, code.c_str()}, std::pair{kBracket, u"}"}});
    setData(added, kImportApplication, std::array{std::pair{kString, m_origin.c_str()}});
    added.close();
    return id;
}

AcDbObjectId DrawingPen::polyline(const std::u16string& layer, std::span<const PathVertex> vertices, bool closed)
{
    auto entity = std::make_unique<AcDbPolyline>(static_cast<unsigned>(vertices.size()));
    for (const PathVertex& vertex : vertices)
    {
        entity->addVertexAt(entity->numVerts(), {vertex.x, vertex.y}, vertex.bulge);
        include({vertex.x, vertex.y, 0.0});
    }
    entity->setClosed(closed);
    return add(layer, std::move(entity));
}

AcDbObjectId DrawingPen::line(const std::u16string& layer, const AcGePoint2d& from, const AcGePoint2d& to)
{
    return polyline(layer, std::array{PathVertex{from.x, from.y}, PathVertex{to.x, to.y}});
}

AcDbObjectId DrawingPen::ladder(const std::u16string& layer, const AcGePoint2d& foot, double step, size_t bars,
                                double width)
{
    auto entity = std::make_unique<AcDbPolyline>(static_cast<unsigned>(bars + 1));
    for (size_t i = 0; i <= bars; ++i)
    {
        const double filled = i % 2 == 0 && i < bars ? width : 0.0;
        const AcGePoint2d at{foot.x, foot.y + static_cast<double>(i) * step};
        entity->addVertexAt(static_cast<unsigned>(i), at, 0.0, filled, filled);
        include({at.x, at.y, 0.0});
    }
    return add(layer, std::move(entity));
}

AcDbObjectId DrawingPen::text(const std::u16string& layer, const AcGePoint2d& at, const std::u16string& text,
                              const TextLook& look)
{
    auto entity = std::make_unique<AcDbText>();
    entity->setTextString(text);
    entity->setHeight(look.height);
    entity->setTextStyle(m_textStyle);
    entity->setRotation(look.rotation);
    entity->setHorizontalMode(look.across);
    entity->setVerticalMode(look.up);
    entity->setPosition({at.x, at.y, 0.0});
    entity->setAlignmentPoint({at.x, at.y, 0.0});
    include({at.x, at.y, 0.0});
    return add(layer, std::move(entity));
}

AcDbObjectId DrawingPen::codedLine(const std::u16string& layer, const AcGePoint3dArray& vertices, bool closed,
                                   const StoredCode& code)
{
    for (const AcGePoint3d& vertex : vertices)
        include(vertex);
    return add(layer, std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, vertices, closed), code);
}

AcDbObjectId DrawingPen::surveyPoint(const std::u16string& layer, const AcGePoint3d& at, const std::u16string& code,
                                     const std::u16string& name)
{
    constexpr int kCodeField = 1;
    constexpr int kNameField = 2;
    auto entity = std::make_unique<PlxDbMeasurePointObj>();
    entity->SetPoint(at);
    entity->Set(kCodeField, code);
    if (!name.empty())
        entity->Set(kNameField, name);
    include(at);
    return add(layer, std::move(entity));
}

void DrawingPen::alignment(const std::u16string& layer, std::unique_ptr<PlxDbAlignment> alignment)
{
    add(layer, std::move(alignment));
}

} // namespace survey
