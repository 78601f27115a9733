// The system's own code pages, for those that the library does not convert itself.
#pragma once

#include <string>
#include <string_view>

#include "orv/wide.h"

namespace orv::platform {

/// The page of narrow texts in this process (Windows: the system's ANSI page; elsewhere 65001, UTF-8).
unsigned ansiCodePage();
/// The page of the old console programs (Windows: the system's OEM page; elsewhere 850).
unsigned oemCodePage();

/// Whether the system can convert this Windows code page.
bool knowsCodePage(unsigned page);

/// Appends the decoded bytes; what the page does not define becomes U+FFFD or what the system puts there.
/// False for an unknown page (`out` is unchanged), or when the system fails.
bool decode(unsigned page, std::string_view bytes, WideString& out);

/// Appends the encoded text; characters that the page lacks become its default character, never a look-alike.
/// False for an unknown page (`out` is unchanged), or when the system fails.
bool encode(unsigned page, WideView text, std::string& out);

}  // namespace orv::platform
