// The presenter of messages that is used until a host sets its own.
#pragma once

#include "orv/messages.h"

namespace orv::platform {

/// Windows: a modal message box; elsewhere one line on standard error.
void presentMessage(MessageKind kind, const wchar_t* title, const wchar_t* text);

}  // namespace orv::platform
