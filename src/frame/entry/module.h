#pragma once

#include "host/app/registry.h"

/// The two exports of the module file.

/// Starts the module (`kInitAppMsg`) in the current session or stops it (`kUnloadAppMsg`); other messages have no
/// effect. Stopped, it leaves no command, dialog or reactor behind, and its globals are as before the start.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* applicationId);

/// The version of the host's interface that the module is made for.
extern "C" int acrxGetApiVersion();
