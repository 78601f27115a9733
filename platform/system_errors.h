// What the system says about a failure.
#pragma once

#include "orv/framework/string.h"

namespace orv::platform {

/// The text of this thread's last system error; "" when there is none.
CString lastErrorText();

}  // namespace orv::platform
