#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// How a drawing's texts are written: UTF-8 from R2007 on, before that the drawing's code page with \U+XXXX for the
/// rest. One object a drawing; made by `makeTextEncoding`.
class TextEncoding
{
public:
    virtual ~TextEncoding() = default;

    /// The text of a value as it stands in the file, `\U+XXXX` and `\M+nXXXX` escapes resolved. Bytes that mean nothing
    /// become U+FFFD. Letters and their marks stay apart where the file keeps them apart.
    virtual std::u16string decode(std::string_view bytes) const = 0;
    /// The bytes of a value for the file; what the code page lacks becomes `\U+XXXX`, line ends become blanks.
    virtual std::string encode(std::u16string_view text) const = 0;
    /// The bytes that a text is in the drawing's code page, each as the code unit of its value; a unit below 256 that
    /// the code page lacks stays as it is. Nothing when a unit has no byte, or when texts are not of single bytes.
    virtual std::optional<std::u16string> bytesOf(std::u16string_view text) const = 0;
    virtual bool isUtf8() const = 0;
};

/// The encoding of a drawing of `version` (a number such as 1015) whose `$DWGCODEPAGE` is `codePage` (such as
/// "ANSI_1258"); an unknown or empty code page is read as Windows-1252.
std::shared_ptr<const TextEncoding> makeTextEncoding(int version, std::string_view codePage);
