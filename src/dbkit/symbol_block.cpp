#include "dbkit/symbol_block.h"

#include "dbkit/symbol_tables.h"
#include "frame/tracking/tracking.h"
#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/text.h"
#include "util/fields.h"

namespace
{

constexpr size_t kEndingLength = 4;
constexpr double kScaleZ = 1.0;

} // namespace

std::u16string SymbolBlockName(std::u16string_view path)
{
    const std::vector<std::u16string> levels = SplitFields(path, u'\\', EmptyFields::kSkip);
    if (levels.empty())
        return {};
    std::u16string name = levels.back();
    if (const size_t slash = name.rfind(u'/'); slash != std::u16string::npos)
        name.erase(0, slash + 1);
    name.resize(name.size() - std::min(name.size(), kEndingLength));
    return lettersForBytes(name);
}

bool CanNameSymbolBlock(std::u16string_view name)
{
    return !name.starts_with(u'*');
}

std::optional<AcDbObjectId> LoadSymbolBlock(const std::u16string& path)
{
    const std::u16string name = SymbolBlockName(path);
    AcDbObjectId id = CanNameSymbolBlock(name) ? GetSymbolId(name, SymbolTable::kBlocks) : AcDbObjectId::kNull;
    if (!id.isNull())
        return id;
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr)
        return std::nullopt;

    const TrackingPause pause;
    AcDbDatabase symbol(false, false);
    if (symbol.readDwgFile(path.c_str(), kForReadAndReadShare) != Acad::eOk ||
        drawing->insert(id, name.c_str(), &symbol, true) != Acad::eOk)
        return std::nullopt;
    return id;
}

std::unique_ptr<AcDbBlockReference> MakeSymbol(const AcGePoint3d& point, AcDbObjectId block, const SymbolLook& look)
{
    auto symbol = std::make_unique<AcDbBlockReference>(point, block);
    symbol->setScaleFactors({look.m_dScaleX, look.m_dScaleY, kScaleZ});
    symbol->setRotation(look.m_dRotation);
    return symbol;
}
