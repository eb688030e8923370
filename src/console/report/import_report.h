#pragma once

#include "console/text/json_text.h"
#include "survey/model/survey.h"
#include "survey/sheet/write_drawing.h"

#include <string>

namespace console
{

/// What `import` read and made, for a person or as JSON.
struct ImportReport
{
    std::string output; ///< empty: nothing was saved
    const survey::Survey* survey = nullptr;
    survey::WriteResult result;
    double tolerance = 0.0; ///< metres within which points belong to sections

    /// How many findings stop the import unless the user goes on.
    size_t unusable() const;
    Json json() const;
    std::string text() const;
};

} // namespace console
