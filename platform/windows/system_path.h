// Paths as the system's wide calls take them.
#pragma once

#include "orv/wide.h"

namespace orv::platform {

/// A path for one call: as it is while it is short, in the form "\\?\C:\..." when the system's old limit of 260
/// characters would refuse it. Made at the last moment; never stored or shown. The text must live as long as this.
class SystemPath {
  public:
    explicit SystemPath(const wchar_t* path);
    SystemPath(const SystemPath&) = delete;
    SystemPath& operator=(const SystemPath&) = delete;

    const wchar_t* get() const noexcept { return long_.empty() ? path_ : long_.c_str(); }

  private:
    const wchar_t* path_;
    WideString long_;
};

}  // namespace orv::platform
