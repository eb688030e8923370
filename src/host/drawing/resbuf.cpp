#include "host/drawing/resbuf.h"

#include "host/app/ledger.h"

#include <algorithm>
#include <string_view>

bool isStringCode(int restype)
{
    const auto between = [restype](int low, int high) { return restype >= low && restype <= high; };
    return restype == -4 || restype == RTSTR || between(0, 9) || restype == 100 || restype == 102 || restype == 105 ||
           between(300, 339) || between(999, 1009);
}

resbuf* acutNewRb(int type)
{
    constexpr int kLastGroupCode = 1071;
    const bool isGroupCode = type >= -4 && type <= kLastGroupCode;
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
