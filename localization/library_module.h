// The library as a program module with wordbooks of its own.
#pragma once

#include "orv/translation.h"
#include "orv/wide.h"

namespace orv {

/// Null where the library is no module of its own to the host.
ModuleHandle libraryHandle();
WideString libraryPath();
/// Null is the host program's handle.
bool sameModule(ModuleHandle a, ModuleHandle b);

}  // namespace orv
