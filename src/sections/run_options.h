#pragma once

#include <optional>

/// How far from a section its objects are looked for, in drawing units.
struct SearchDistances
{
    double backward = 0.0;
    double forward = 0.0;
};

/// What a program around the module asks for beyond what the user's dialogs do. Nothing unless it is set.
struct RunOptions
{
    /// These count in place of the stored distances whenever the settings are read.
    std::optional<SearchDistances> distances;
    /// Settings are not written: the user's stay as they are.
    bool keepStoredSettings = false;
};

extern RunOptions g_RunOptions;
