#include "host/db/resbuf.h"

#include "host/db/ledger.h"
#include "store/group_codes.h"

#include <algorithm>
#include <string_view>

bool isStringCode(int restype)
{
    constexpr int kLastOwnedHandle = 339; // from here on a node holds no handle
    if (restype == -4 || restype == RTSTR)
        return true;
    const dxf::ValueKind kind = dxf::kindOf(restype);
    const bool isText =
        kind == dxf::ValueKind::String || kind == dxf::ValueKind::Handle || kind == dxf::ValueKind::Chunk;
    return isText && restype != dxf::kEmbeddedObject && (restype <= kLastOwnedHandle || restype >= dxf::kComment);
}

resbuf* acutNewRb(int type)
{
    const bool isGroupCode = type >= -4 && type <= dxf::kLastCode;
    const bool isResultType = type >= RTNONE && type <= RTLONG;
    if (!isGroupCode && !isResultType)
        return nullptr;
    auto* node = new resbuf;
    node->restype = static_cast<int16_t>(type);
    ++ledger().resultBuffers;
    return node;
}

int acutRelRb(resbuf* chain)
{
    while (chain != nullptr)
    {
        resbuf* next = chain->rbnext;
        if (isStringCode(chain->restype))
            acutDelString(chain->resval.rstring);
        delete chain;
        --ledger().resultBuffers;
        chain = next;
    }
    return RTNORM;
}

char16_t* acutNewString(const char16_t* text)
{
    const std::u16string_view view{text};
    auto* copy = new char16_t[view.size() + 1];
    std::copy_n(text, view.size() + 1, copy);
    return copy;
}

void acutDelString(char16_t*& text)
{
    delete[] text;
    text = nullptr;
}
