// The running program and its user.
#pragma once

#include "orv/wide.h"

struct HINSTANCE__;

namespace orv::platform {

/// The file of the running program; "" when the system does not tell.
WideString programPath();
/// The file of a loaded module; on Windows alone.
WideString modulePath(HINSTANCE__* module);

/// The language of the system's user interface as two small letters ("de"); "" when it has none.
WideString interfaceLanguage();

}  // namespace orv::platform
