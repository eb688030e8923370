#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A drawing as the pairs it is made of, for changing it where it means something.
struct Pair
{
    int code = 0;
    std::string value;
};
using Pairs = std::vector<Pair>;

/// The pairs of a drawing's text, up to the first line that is no group code.
Pairs pairsOf(std::string_view text);
std::string textOf(const Pairs& pairs);

/// The pairs as a binary file: each value in the size that its code asks for. Before R13 (`shortCodes`) a group code is
/// one byte, or a mark and two.
std::string binaryOf(const Pairs& pairs, bool shortCodes);

/// Changes a few pairs or whole entities. `seed` decides all.
void mutate(Pairs& pairs, unsigned seed);
/// The text of a drawing after such changes.
std::string changedText(std::string_view text, unsigned seed);
/// Puts some entities of `other` into `pairs`.
void mix(Pairs& pairs, const Pairs& other, unsigned seed);
