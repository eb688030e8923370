#pragma once

#include <span>
#include <string_view>

/// A dialog as plain data: what it consists of, before it is made. Positions and sizes are dialog units.

enum class ControlKind
{
    kDefaultButton,
    kButton,
    kCheckBox,
    kGroupBox,
    kLabel,
    kEdit,
    kCheckList,
    kDropDownList,
    kGrid,
    kTabControl
};

/// The id of controls that nobody asks for.
constexpr int kNoControlId = -1;

struct ControlTemplate
{
    int id;
    ControlKind kind;
    int x;
    int y;
    int width;
    int height; ///< of a drop-down list, with its list open
    std::u16string_view text = {};
};

enum class DialogFrame
{
    kFixed,   ///< a window of its own with a caption and a system menu
    kSizable, ///< the same, with a border to size it by
    kPage     ///< a child without a frame, such as a page of a tab control
};

struct DialogTemplate
{
    int id;
    int width;
    int height;
    DialogFrame frame;
    std::u16string_view caption;
    std::u16string_view fontFace;
    int fontSize;                              ///< points
    std::span<const ControlTemplate> controls; ///< in tab order
};
