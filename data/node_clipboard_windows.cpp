#include <new>
#include <string>

#include "orv/node_format.h"
#include "orv/wide.h"
#include "platform/windows/windows.h"

namespace {

BOOL CALLBACK takeMainWindow(HWND window, LPARAM result) {
    if (GetWindow(window, GW_OWNER) != nullptr || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

/// The open clipboard. Who empties it needs a window to own it: a thread that has none lends it one for the time.
class Clipboard {
  public:
    Clipboard() {
        HWND window = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), takeMainWindow, reinterpret_cast<LPARAM>(&window));
        if (window == nullptr) {
            lent_ = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
            window = lent_;
        }
        isOpen_ = OpenClipboard(window) != FALSE;
    }
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    ~Clipboard() {
        if (isOpen_) CloseClipboard();
        if (lent_ != nullptr) DestroyWindow(lent_);
    }
    bool isOpen() const { return isOpen_; }

  private:
    HWND lent_ = nullptr;
    bool isOpen_ = false;
};

/// False when there is no such data; what they hold up to the first NUL, at most all of them.
bool takeText(UINT format, orv::WideString& text) {
    if (IsClipboardFormatAvailable(format) == FALSE) return false;
    const HANDLE data = GetClipboardData(format);
    const auto* characters = data != nullptr ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (characters == nullptr) return false;
    text.assign(characters, GlobalSize(data) / sizeof(wchar_t));
    GlobalUnlock(data);
    return true;
}

}  // namespace

bool CProNodeBase::ClipboardOut(bool asText, bool indented) const {
    const Clipboard clipboard;
    if (!clipboard.isOpen()) return false;
    EmptyClipboard();
    const UINT own = RegisterClipboardFormatW(L"PRONODE");
    const int level = indented ? 0 : -1;
    const HGLOBAL block = GlobalAlloc(GHND, (getSize(level) + 1) * sizeof(wchar_t));
    if (block == nullptr) return false;
    try {
        WriteToMem(static_cast<wchar_t*>(GlobalLock(block)), level);
    } catch (const std::bad_alloc&) {
        GlobalFree(block);
        return false;
    }
    GlobalUnlock(block);
    // ODDITY(node-clipboard-wide): the plain text format, which others read as narrow text, gets wide characters too.
    // Pinned by NodeClipboard.TextFormatHoldsWideCharacters.
    if (SetClipboardData(asText ? CF_TEXT : own, block) == nullptr) {
        GlobalFree(block);
        return false;
    }
    return true;
}

CProNodeBase* CProNodeBase::ClipboardIn(bool /*unused*/) {
    orv::WideString text;
    {
        const Clipboard clipboard;
        if (!clipboard.isOpen()) return nullptr;
        const UINT formats[] = {RegisterClipboardFormatW(L"PRONODE"), RegisterClipboardFormatW(L"UPRONODE"), CF_TEXT};
        bool isThere = false;
        for (const UINT format : formats) {
            isThere = takeText(format, text);
            if (isThere) break;
        }
        if (!isThere) return nullptr;
    }
    return ReadFromString(text.c_str(), 0, false);
}
