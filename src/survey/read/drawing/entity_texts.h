#pragma once

#include "survey/read/drawing/drawing_view.h"

namespace survey
{

/// An attribute of a block reference, and what it says of a point.
struct Attribute
{
    enum Use
    {
        kOther,
        kNumber,
        kHeight,
        kCode
    };

    Use use = kOther; ///< by its tag
    std::u16string text;
};
std::vector<Attribute> attributesOf(const DrawingView& drawing, const Entity& reference);

/// The name of the block that a reference places.
std::u16string blockNameOf(const DrawingView& drawing, const Entity& reference);

/// What a text says, trimmed; of a multi-line one without its formatting, line ends as blanks.
std::u16string textOf(const DrawingView& drawing, const Entity& text);

} // namespace survey
