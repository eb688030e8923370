#pragma once

#include "console/text/json_text.h"

class CDialog;

namespace console
{

/// A dialog with everything it shows, as `print dialog` prints it.
Json dialogJson(const CDialog& dialog);

} // namespace console
