#pragma once

#include <string>

/// The module's text of `id`, as wide text; empty for an id that it does not have.
std::u16string LoadText(unsigned id);
