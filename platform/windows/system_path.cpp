#include "platform/windows/system_path.h"

#include "platform/windows/windows.h"

namespace orv::platform {
namespace {

// A folder must leave room for a name of 8.3 characters within 260, so the limit for all kinds is that of folders.
constexpr std::size_t kShortEnough = 247;

bool isFinal(WideView path) {
    return path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\") || path.starts_with(L"\\??\\");
}

}  // namespace

SystemPath::SystemPath(const wchar_t* path) : path_(path != nullptr ? path : L"") {
    const WideView given(path_);
    if (isFinal(given)) return;
    // A short relative path may be long once it is complete.
    const bool isAbsolute = given.size() >= 2 && (given[1] == L':' || given.starts_with(L"\\\\"));
    if (isAbsolute ? given.size() <= kShortEnough : given.size() + GetCurrentDirectoryW(0, nullptr) <= kShortEnough) {
        return;
    }
    // The long form is taken literally by the system: it must be complete and free of "/" and "..".
    WideString complete(given.size() + MAX_PATH, 0);
    for (;;) {
        const DWORD length = GetFullPathNameW(path_, static_cast<DWORD>(complete.size()), complete.data(), nullptr);
        if (length == 0) return;
        if (length < complete.size()) {
            complete.resize(length);
            break;
        }
        complete.resize(length);
    }
    if (complete.size() <= kShortEnough || isFinal(complete)) return;
    long_ = complete.starts_with(L"\\\\") ? L"\\\\?\\UNC" + complete.substr(1) : L"\\\\?\\" + complete;
}

}  // namespace orv::platform
