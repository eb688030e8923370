#pragma once

/// What a module knows of text: wide text and UTF-8, 8-bit Vietnamese letters, composing, and the one comparison of
/// names.
#include "store/text/composing.h"
#include "store/text/tcvn3_letters.h"
#include "store/text/text.h"
