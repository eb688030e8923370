#pragma once

#include <string>
#include <vector>

/// Runs a command of the host's own, with its options, in words: Zoom with "e", "p" or two corners "x,y". False when
/// there is no such command, or no drawing is open.
bool runHostCommand(const std::vector<std::u16string>& words);
