// Direct access to the characters of a CString, for the few loops of the library in which a call would cost more than
// the work.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include "framework/string_data.h"
#include "orv/framework/string.h"

namespace orv {

struct StringAccess {
    /// The characters if they are this string's own and may be written, and room for so many; else null.
    static wchar_t* ownCharacters(CString& text, std::size_t& room) {
        if (text.data()->references.load(std::memory_order_acquire) != 1 || text.data()->capacity < 0) return nullptr;
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
    /// A string of characters that have one reference for it.
    static AdoptedText adopt(wchar_t* characters) { return AdoptedText(characters); }
    static StringData* dataOf(const wchar_t* characters) { return CString::dataOf(characters); }
    static StringData* dataOf(const CString& text) { return text.data(); }
    /// Takes the characters with their reference out of a string, which then is empty.
    static wchar_t* release(CString& text) { return std::exchange(text.text_, CString::empty()); }
    static wchar_t* charactersOf(const CString& text) { return text.text_; }
    /// Ends the text behind `length` characters, for which there is room.
    static void setLength(CString& text, std::size_t length) { text.setLength(static_cast<int>(length)); }
};

}  // namespace orv
