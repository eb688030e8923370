#pragma once

#include "host/db/rx.h"

#include <array>

/// A class that is no part of the drawing format itself: a drawing that has objects of it lists it, with the
/// application that it belongs to.
struct CustomClass
{
    const AcRxClass* kind;
    const char* application;
};

/// Those whose objects the host can make.
const std::array<CustomClass, 2>& customClasses();
