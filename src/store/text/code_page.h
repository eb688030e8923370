#pragma once

#include <memory>
#include <string>
#include <string_view>

/// One of the code pages that drawings are written in. In a single-byte one each byte stands for one code unit and a
/// code unit for at most one byte, whatever stands beside it: a mark is never joined with the letter before it, nor a
/// letter taken apart.
class CodePage
{
public:
    /// The code page of a name as drawings give it ("ANSI_1258", "dos437", "gb2312") or as the C library does
    /// ("CP1258"); null for an unknown one.
    static std::unique_ptr<const CodePage> find(std::string_view name);

    virtual ~CodePage() = default;
    /// What bytes stand for; one that means nothing is U+FFFD.
    virtual std::u16string decode(std::string_view bytes) const = 0;
    /// The bytes of a code unit beyond ASCII; none when the code page lacks it.
    virtual std::string encode(char16_t unit) const = 0;
    virtual bool isSingleByte() const = 0;
};
