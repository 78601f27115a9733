// The clipboard of the system, and wide text on it.
#pragma once

#include <new>

#include "orv/wide.h"
#include "platform/windows/windows.h"

namespace orv {

/// The open clipboard. Who empties it needs a window to own it: a thread that has none lends it one for the time.
class Clipboard {
  public:
    Clipboard();
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    ~Clipboard();
    bool isOpen() const { return isOpen_; }

    /// The characters up to the first NUL, at most all that are there. False when there are no such data.
    static bool takeText(UINT format, WideString& text);
    /// Puts `size` characters, which write(buffer) writes, and a NUL there. False when memory cannot be had.
    template <class Write>
    static bool putText(UINT format, std::size_t size, Write write) {
        const HGLOBAL block = GlobalAlloc(GHND, (size + 1) * sizeof(wchar_t));
        if (block == nullptr) return false;
        try {
            write(static_cast<wchar_t*>(GlobalLock(block)));
        } catch (const std::bad_alloc&) {
            GlobalFree(block);
            return false;
        }
        GlobalUnlock(block);
        if (SetClipboardData(format, block) != nullptr) return true;
        GlobalFree(block);
        return false;
    }

  private:
    HWND lent_ = nullptr;
    bool isOpen_ = false;
};

}  // namespace orv
