#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Colours of the host's palette by the names under which a colour cell shows them.

constexpr std::u16string_view kOtherColors = u"Others...";

/// "ByLayer" (256), "ByBlock" (0), the names of 1 to 7, or "Color n".
std::u16string colorName(int index);

/// "Color n" for any index.
std::u16string numberedColorName(int index);

/// The palette index that `name` stands for, without regard to case; nothing when it names none.
std::optional<int> colorOfName(std::u16string_view name);

/// What a colour cell offers before any colour was chosen, `kOtherColors` last.
const std::vector<std::u16string>& offeredColorNames();
