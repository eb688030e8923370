#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// An input changed where it means something. Each fuzzer has its own; `seed` decides all. Empty where nothing means
/// anything: then bytes are changed.
std::string changedInput(std::string_view input, unsigned seed);
