#include "resources/string_table.h"

#include "util/tcvn3.h"

#include <iterator>
#include <string_view>

namespace
{

/// By id, from 1 on. TCVN3 bytes as the characters of the same code.
constexpr std::u16string_view kTexts[] = {
    u"Tham sè vÏ Symbols,line",
    u"Tham sè vÏ fcode tr¾c ngang",
    u"Tham sè t×m kiÕm vµ hiÓn thÞ",
    u"Tªn",
    u"Tªn file",
    u"Tû lÖ X",
    u"Tû lÖ Y",
    u"Gãc quay",
    u"Fcode",
    u"Tªn file",
    u"§iÒn tªn symbol",
    u"Symbol Station",
    u"§iÒn Fcode",
    u"VÏ",
    u"MÇu",
    u"Chon tuyen can thao tac",
    u"VÏ ký hiÖu symbol",
    u"VÏ ký hiÖu Fcode",
    u"Tham sè vÏ fcode b×nh ®å",
    u"ChÌn t¹i ®Ønh pline",
};

constexpr size_t kLongestText = 255;

} // namespace

std::u16string LoadText(unsigned id)
{
    if (id == 0 || id > std::size(kTexts))
        return {};
    return DecodeStoredText(kTexts[id - 1], kLongestText);
}
