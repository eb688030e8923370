#pragma once

#include <string>
#include <string_view>

/// Numbers as the user types them and as the files hold them: always with a point, whatever the locale. A text of any
/// length will do.

/// The decimal number at the start of `text`, behind white space: sign, digits, point, exponent, as far as they form
/// one; 0 when there is none (also for words such as "inf"), when it is too small, and when it is too large: nothing
/// could be drawn by it, and no file could hold it.
double ToReal(std::u16string_view text);

/// Whether a decimal number that is not too large stands at the start of `text`, behind white space; where none does,
/// `ToReal` gives 0.
bool StartsWithReal(std::u16string_view text);

/// The integer at the start of `text`, behind white space; 0 when there is none. Too large gives the largest, too
/// small the smallest `int`.
int ToInteger(std::u16string_view text);

/// `value` with `decimals` digits behind the point.
std::u16string FormatReal(double value, int decimals);

/// `value` in decimal.
std::u16string FormatInteger(int value);
