#pragma once

#include <initializer_list>
#include <string>

/// Runs a host command with its options, as text. Known: Zoom with "e", "p" or two corners "x,y". RTNORM or RTERROR.
/// The words end the call; there is no end marker to pass.
int acedCommandS(std::initializer_list<std::u16string> words);

struct resbuf;
/// Asks the user for a file: `result` receives a string. RTNORM, or RTCAN.
int acedGetFileD(const char16_t* title, const char16_t* defaultName, const char16_t* extension, int flags,
                 resbuf* result);
/// Asks the user for a colour of the palette, starting from `color`. True when one was chosen.
bool acedSetColorDialog(int& color, bool byLayerAllowed, int currentLayerColor);
