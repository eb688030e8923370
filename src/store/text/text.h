#pragma once

#include <compare>
#include <string>
#include <string_view>

/// Text of the host and everything above it is UTF-16; UTF-8 stands only at the edges (files, terminal, window).
/// The functions here are the only conversions, and the only rule by which names are compared.

/// UTF-8 of `text`. A lone surrogate becomes U+FFFD, or the letter of the byte that it carries (see `keepBytes`).
std::string toUtf8(std::u16string_view text);

/// UTF-16 of `text`. A byte that does not belong to valid UTF-8 becomes U+FFFD.
std::u16string toUtf16(std::string_view text);

/// Wide text of bytes that are meant to be UTF-8 but need not be, such as names on disk: a byte that does not belong to
/// valid UTF-8 is carried by a lone surrogate, U+DC00 and its value.
std::u16string keepBytes(std::string_view bytes);

/// The bytes of a text with such surrogates, as `keepBytes` was given them. U+DC5C is a backslash; a lone surrogate
/// that carries nothing becomes U+FFFD.
std::string keptBytes(std::u16string_view text);

/// `text` with the bytes that it carries as the letters they are in 8-bit Vietnamese (TCVN3): what stands wherever a
/// name is not used as a path.
std::u16string lettersForBytes(std::u16string_view text);

/// The lower-case form of an ASCII, Latin-1 or Vietnamese letter; any other code unit as it is. The same in every
/// locale.
char16_t foldCase(char16_t unit);

/// Compares two texts by their characters, Vietnamese letters composed and all of them folded.
/// `std::strong_ordering::equal` is the one meaning of "the same name" everywhere in the program.
std::strong_ordering compareNoCase(std::u16string_view a, std::u16string_view b);

bool equalNoCase(std::u16string_view a, std::u16string_view b);

/// Whether `text` begins with `prefix`, by the same rule.
bool startsWithNoCase(std::u16string_view text, std::u16string_view prefix);

/// Order for sets and maps keyed by name.
struct LessNoCase
{
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const { return std::is_lt(compareNoCase(a, b)); }
};

/// Hash and equality for unordered containers keyed by name.
struct HashNoCase
{
    using is_transparent = void;
    size_t operator()(std::u16string_view text) const;
};

struct EqualNoCase
{
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const { return equalNoCase(a, b); }
};
