#pragma once

#include <array>
#include <string>
#include <vector>

/// What a name or feature code is shown with: a symbol drawing, its scales and its rotation, as numbers and as the
/// texts that tables and files hold.

struct SymbolLook
{
    std::u16string m_strFile; ///< symbol drawing to place; empty for none
    double m_dScaleX = 1.0;
    double m_dScaleY = 1.0;
    double m_dRotation = 0.0; ///< radians

    /// Of what has a look, the look alone.
    SymbolLook& look() { return *this; }
    const SymbolLook& look() const { return *this; }
};

/// A row of a table of symbols as it is typed: the name or feature code that it is about, and the look that this gets.
struct RowTexts
{
    std::u16string key;
    std::u16string file;
    std::u16string scaleX;
    std::u16string scaleY;
    std::u16string rotation;

    /// The look in numbers; what is no number counts as 0.
    SymbolLook look() const;
};

/// The texts in the order of the tables' columns and the files' fields.
inline constexpr std::array kRowFields{&RowTexts::key, &RowTexts::file, &RowTexts::scaleX, &RowTexts::scaleY,
                                       &RowTexts::rotation};

/// The row that the first of `fields` make; there must be as many as a row has.
RowTexts MakeRow(const std::vector<std::u16string>& fields);

/// The texts of a row as a line, with `delimiter` between them.
std::u16string JoinRow(const RowTexts& row, char16_t delimiter);
