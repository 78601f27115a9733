#include "platform/system_errors.h"

#include <cerrno>
#include <cstring>

namespace orv::platform {

CString lastErrorText() { return errno == 0 ? CString() : CString(std::strerror(errno)); }

}  // namespace orv::platform
