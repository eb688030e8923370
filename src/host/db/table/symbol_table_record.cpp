#include "host/db/table/symbol_tables.h"

#include "host/db/database.h"
#include "host/db/table/new_block.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <cstdlib>
#include <utility>

ACRX_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, u"STYLE")
ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, u"LAYER")
ACRX_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, u"LTYPE")
ACRX_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, u"DIMSTYLE")
ACRX_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbSymbolTableRecord, u"VIEW")
ACRX_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, u"UCS")
ACRX_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbSymbolTableRecord, u"VPORT")
ACRX_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, u"APPID")

Acad::ErrorStatus AcDbSymbolTableRecord::getName(std::u16string& name) const
{
    name = m_name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::mayChangeFresh()
{
    if (!isFresh())
        return Acad::eNotImplementedYet;
    return objectId().isNull() || isWriteEnabled() ? Acad::eOk : Acad::eNotOpenForWrite;
}

/// A record that stands in its table already keeps the name it has there.
Acad::ErrorStatus AcDbSymbolTableRecord::setName(const std::u16string& name)
{
    if (!objectId().isNull())
        return Acad::eNotImplementedYet;
    m_name = name;
    return Acad::eOk;
}

void AcDbSymbolTableRecord::decode(TagReader&)
{
    m_name = nameOfRecord(*objectId().record());
}

void AcDbSymbolTableRecord::encode(TagWriter& out) const
{
    out.text(100, "AcDbSymbolTableRecord");
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const std::u16string& file)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_file = file;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double height)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_height = height;
    return status;
}

void AcDbTextStyleTableRecord::decode(TagReader& pairs)
{
    AcDbSymbolTableRecord::decode(pairs);
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == 3)
            m_file = decodeText(tag.word());
        else if (tag.code == 40)
            m_height = tag.real();
}

void AcDbTextStyleTableRecord::encode(TagWriter& out) const
{
    constexpr double kLastHeight = 2.5; ///< offered by the host's own text command
    AcDbSymbolTableRecord::encode(out);
    out.text(100, "AcDbTextStyleTableRecord");
    out.text(2, encodeText(getName()));
    out.integer(70, 0);
    out.real(40, m_height);
    out.real(41, 1.0);
    out.real(50, 0.0);
    out.integer(71, 0);
    out.real(42, kLastHeight);
    out.text(3, encodeText(m_file));
    out.text(4, {});
}

void AcDbRegAppTableRecord::encode(TagWriter& out) const
{
    AcDbSymbolTableRecord::encode(out);
    out.text(100, "AcDbRegAppTableRecord");
    out.text(2, encodeText(getName()));
    out.integer(70, 0);
}

Acad::ErrorStatus AcDbLayerTableRecord::mayChange()
{
    if (isFresh())
        return mayChangeFresh();
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    m_isStateChanged = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setFlag(int bit, bool on)
{
    const Acad::ErrorStatus status = mayChange();
    if (status == Acad::eOk)
        m_flags = on ? m_flags | bit : m_flags & ~bit;
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off)
{
    const Acad::ErrorStatus status = mayChange();
    if (status == Acad::eOk)
        m_off = off;
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    const Acad::ErrorStatus status = mayChange();
    if (status == Acad::eOk)
        m_color = color;
    if (status == Acad::eOk && !isFresh())
        m_isColorChanged = true;
    return status;
}

/// Changes the pairs that say another thing than the layer does now; a palette colour takes the place of a true one.
void AcDbLayerTableRecord::beforeClose()
{
    const bool isColorChanged = std::exchange(m_isColorChanged, false);
    if (!std::exchange(m_isStateChanged, false))
        return;
    const auto pairOf = [](int code, int value)
    {
        TagWriter out;
        out.integer(code, value);
        return out.take();
    };
    PairEdit edit{pairs()};
    bool hasFlags = false;
    bool hasColor = false;
    OwnPairs own{pairs()};
    for (Tag tag; own.next(tag);)
        if (tag.code == 70 && !std::exchange(hasFlags, true) && tag.integerOr(0) != m_flags)
            edit.replace(tag, pairOf(70, m_flags));
        else if (tag.code == 62 && !std::exchange(hasColor, true) && tag.integerOr(0) != signedColor())
            edit.replace(tag, pairOf(62, signedColor()));
        else if (isColorChanged && (tag.code == 420 || tag.code == 430))
            edit.replace(tag, {});
    if (!hasFlags)
        edit.insert(own.position(), pairOf(70, m_flags));
    if (!hasColor)
        edit.insert(own.position(), pairOf(62, signedColor()));
    if (const std::string changed = edit.take(); changed != pairs())
        setPairs(changed);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    const Acad::ErrorStatus status = mayChangeFresh();
    if (status == Acad::eOk)
        m_linetype = id;
    return status;
}

void AcDbLayerTableRecord::decode(TagReader& pairs)
{
    AcDbSymbolTableRecord::decode(pairs);
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == 70)
            m_flags = static_cast<int>(tag.integer());
        else if (tag.code == 62)
        {
            // A layer that is off has its colour negated.
            m_off = tag.integer() < 0;
            m_color.setColorIndex(static_cast<int>(std::abs(tag.integer()) % 257));
        }
        else if (tag.code == 6)
            m_linetype = AcDbObjectId{database()->tables().find("LTYPE", decodeText(tag.word()))};
}

void AcDbLayerTableRecord::encode(TagWriter& out) const
{
    constexpr int kDefaultLineWeight = -3;
    AcDbSymbolTableRecord::encode(out);
    out.text(100, "AcDbLayerTableRecord");
    out.text(2, encodeText(getName()));
    out.integer(70, m_flags);
    out.integer(62, signedColor());
    out.text(6, m_linetype.isNull() ? "Continuous" : spellingOf(*m_linetype.record()));
    out.integer(370, kDefaultLineWeight);
    if (const uint64_t plotStyle = plotStyleOfLayers(*database()); plotStyle != 0)
        out.handle(390, plotStyle);
}
