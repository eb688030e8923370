#include "dbkit/symbol_look.h"

#include "util/numbers.h"

SymbolLook RowTexts::look() const
{
    return {file, ToReal(scaleX), ToReal(scaleY), ToReal(rotation)};
}

RowTexts MakeRow(const std::vector<std::u16string>& fields)
{
    RowTexts row;
    for (size_t at = 0; at < kRowFields.size(); ++at)
        row.*kRowFields[at] = fields[at];
    return row;
}

std::u16string JoinRow(const RowTexts& row, char16_t delimiter)
{
    std::u16string line = row.key;
    for (size_t at = 1; at < kRowFields.size(); ++at)
        (line += delimiter) += row.*kRowFields[at];
    return line;
}
