// Direct access to the characters of a CString, for the few loops of the library in which a call would cost more than
// the work.
#pragma once

#include <cstddef>
#include <new>

#include "framework/string_data.h"
#include "orv/framework/string.h"

namespace orv {

struct StringAccess {
    /// The characters if they are this string's own and may be written, and room for so many; else null.
    static wchar_t* ownCharacters(CString& text, std::size_t& room) {
        if (text.data()->references.load(std::memory_order_acquire) != 1) return nullptr;
        room = static_cast<std::size_t>(text.data()->capacity);
        return text.text_;
    }
    /// A text of `length` characters, which the caller writes from `to` on.
    static CString ofLength(std::size_t length, wchar_t*& to) {
        CString made;
        if (length > static_cast<std::size_t>(kMaximumTextLength)) throw std::bad_alloc();
        if (length == 0) {
            to = nullptr;
            return made;
        }
        to = made.text_ = allocateText(static_cast<int>(length));
        made.setLength(static_cast<int>(length));
        return made;
    }
    /// Copies of the text share its characters without counting from now on; they are never freed.
    static void makeImmortal(CString& text) {
        if (text.data()->references.load(std::memory_order_relaxed) == 1)
            text.data()->references.store(StringData::kImmortal, std::memory_order_relaxed);
    }
    /// Ends the text behind `length` characters, for which there is room.
    static void setLength(CString& text, std::size_t length) { text.setLength(static_cast<int>(length)); }
};

}  // namespace orv
