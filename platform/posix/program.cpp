#include "platform/program.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

#include "framework/utf8.h"

namespace orv::platform {

WideString programPath() {
    std::string path(256, 0);
    for (;;) {
        const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) return {};
        if (static_cast<std::size_t>(length) < path.size()) {
            path.resize(static_cast<std::size_t>(length));
            return utf8ToWide(path);
        }
        path.resize(path.size() * 2);
    }
}

// As the C library chooses the language of messages: the first of the three that is set.
WideString interfaceLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == 0) continue;
        const std::string_view locale(value);
        const bool isLanguage = locale.size() >= 2 && (locale.size() == 2 || locale[2] == '_' || locale[2] == '.');
        return isLanguage ? utf8ToWide(locale.substr(0, 2)) : WideString();
    }
    return {};
}

}  // namespace orv::platform
