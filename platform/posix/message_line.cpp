#include <cstdio>
#include <string>

#include "framework/utf8.h"
#include "platform/message_box.h"

namespace orv::platform {

void presentMessage(MessageKind kind, const wchar_t* title, const wchar_t* text) {
    static constexpr const char* kNames[] = {"Information", "Warning", "Error"};
    std::string line = kNames[static_cast<int>(kind)];
    if (*title != 0) line += ": " + wideToUtf8(title);
    line += ": " + wideToUtf8(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace orv::platform
