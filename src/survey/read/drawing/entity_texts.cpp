#include "survey/read/drawing/entity_texts.h"

#include "host/db/curve/entity_curves.h"
#include "util/fields.h"

#include <algorithm>
#include <array>

namespace survey
{

namespace
{

constexpr int kExtendedData = 1000;

struct TagWord
{
    std::u16string_view tag;
    Attribute::Use use;
};

/// As the blocks of survey programs name their attributes.
constexpr std::array kTags{
    TagWord{u"STT", Attribute::kNumber},     TagWord{u"SO", Attribute::kNumber},
    TagWord{u"SOHIEU", Attribute::kNumber},  TagWord{u"TEN", Attribute::kNumber},
    TagWord{u"TENDIEM", Attribute::kNumber}, TagWord{u"NUMBER", Attribute::kNumber},
    TagWord{u"NO", Attribute::kNumber},      TagWord{u"POINT", Attribute::kNumber},
    TagWord{u"PT", Attribute::kNumber},      TagWord{u"ID", Attribute::kNumber},
    TagWord{u"NAME", Attribute::kNumber},    TagWord{u"CAODO", Attribute::kHeight},
    TagWord{u"H", Attribute::kHeight},       TagWord{u"Z", Attribute::kHeight},
    TagWord{u"ELEV", Attribute::kHeight},    TagWord{u"ELEVATION", Attribute::kHeight},
    TagWord{u"HEIGHT", Attribute::kHeight},  TagWord{u"LEVEL", Attribute::kHeight},
    TagWord{u"CODE", Attribute::kCode},      TagWord{u"MA", Attribute::kCode},
    TagWord{u"MADV", Attribute::kCode},      TagWord{u"FCODE", Attribute::kCode},
    TagWord{u"DESC", Attribute::kCode},      TagWord{u"GHICHU", Attribute::kCode},
};

Attribute::Use useOf(std::u16string_view tag)
{
    std::u16string plain{tag};
    std::erase_if(plain, [](char16_t unit) { return unit == u'_' || unit == u'-' || unit == u' '; });
    const auto* const found =
        std::find_if(kTags.begin(), kTags.end(), [&](const TagWord& each) { return equalNoCase(each.tag, plain); });
    return found == kTags.end() ? Attribute::kOther : found->use;
}

/// The value of an entity's first pair of a code.
std::string_view valueOf(const ObjectRecord& record, int code)
{
    TagReader pairs{record.view()};
    for (Tag tag; pairs.next(tag) && tag.code < kExtendedData;)
        if (tag.code == code)
            return tag.value;
    return {};
}

/// All values of the codes 3 and 1: the parts of a long text, and its last.
std::string wholeText(const ObjectRecord& record)
{
    std::string text;
    TagReader pairs{record.view()};
    for (Tag tag; pairs.next(tag) && tag.code < kExtendedData;)
        if (tag.code == 1 || tag.code == 3)
            text += tag.value;
    std::erase(text, '\r');
    return text;
}

/// A multi-line text without what formats it: braces, "\P" for a new line, "\fArial;" and their like.
std::u16string withoutFormats(const std::u16string& text)
{
    constexpr std::u16string_view kUntilSemicolon = u"ACFHQTWfpS";
    std::u16string plain;
    for (size_t i = 0; i < text.size(); ++i)
        if (text[i] == u'{' || text[i] == u'}')
            continue;
        else if (text[i] != u'\\' || i + 1 == text.size())
            plain += text[i];
        else if (const char16_t next = text[++i]; next == u'P' || next == u'~')
            plain += u' ';
        else if (next == u'\\' || next == u'{' || next == u'}')
            plain += next;
        else if (kUntilSemicolon.find(next) != kUntilSemicolon.npos)
            i = std::min(text.find(u';', i), text.size());
    return plain;
}

} // namespace

std::vector<Attribute> attributesOf(const DrawingView& drawing, const Entity& reference)
{
    std::vector<Attribute> attributes;
    for (const ObjectRecord* const record : subEntitiesOf(*reference.record))
        if (const std::string_view tag = valueOf(*record, 2); !tag.empty())
            attributes.push_back({useOf(TrimSpace(drawing.decoded(tag))),
                                  std::u16string{TrimSpace(drawing.decoded(valueOf(*record, 1)))}});
    return attributes;
}

std::u16string blockNameOf(const DrawingView& drawing, const Entity& reference)
{
    return std::u16string{TrimSpace(drawing.decoded(valueOf(*reference.record, 2)))};
}

std::u16string textOf(const DrawingView& drawing, const Entity& text)
{
    const std::u16string whole = drawing.decoded(wholeText(*text.record));
    return std::u16string{TrimSpace(text.kind == "MTEXT" ? withoutFormats(whole) : whole)};
}

} // namespace survey
