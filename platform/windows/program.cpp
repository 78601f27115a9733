#include "platform/program.h"

#include "platform/windows/windows.h"

namespace orv::platform {

WideString modulePath(HINSTANCE__* module) {
    WideString path(MAX_PATH, 0);
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

WideString programPath() { return modulePath(nullptr); }

WideString interfaceLanguage() {
    constexpr int kRoom = 16;
    wchar_t name[kRoom];
    const LCID locale = MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT);
    const int length = GetLocaleInfoW(locale, LOCALE_SISO639LANGNAME, name, kRoom);
    return length > 1 ? WideString(name, static_cast<std::size_t>(length) - 1) : WideString();
}

}  // namespace orv::platform
