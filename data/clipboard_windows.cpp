#include "data/clipboard_windows.h"

namespace orv {
namespace {

BOOL CALLBACK takeMainWindow(HWND window, LPARAM result) {
    if (GetWindow(window, GW_OWNER) != nullptr || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

}  // namespace

Clipboard::Clipboard() {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), takeMainWindow, reinterpret_cast<LPARAM>(&window));
    if (window == nullptr) {
        lent_ = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        window = lent_;
    }
    isOpen_ = OpenClipboard(window) != FALSE;
}

Clipboard::~Clipboard() {
    if (isOpen_) CloseClipboard();
    if (lent_ != nullptr) DestroyWindow(lent_);
}

bool Clipboard::takeText(UINT format, WideString& text) {
    if (IsClipboardFormatAvailable(format) == FALSE) return false;
    const HANDLE data = GetClipboardData(format);
    const auto* characters = data != nullptr ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (characters == nullptr) return false;
    text.assign(characters, GlobalSize(data) / sizeof(wchar_t));
    GlobalUnlock(data);
    return true;
}

}  // namespace orv
