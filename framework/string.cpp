// CString: life, sharing, the buffer, assigning and appending.
#include "orv/framework/string.h"

#include <functional>
#include <string_view>

#include "framework/string_data.h"
#include "framework/text_pages.h"
#include "platform/code_pages.h"

namespace {

orv::WideString fromNarrow(std::string_view text) {
    orv::WideString wide;
    orv::platform::decode(orv::platform::ansiCodePage(), text, wide);
    return wide;
}

std::string_view viewOf(const char* text) { return text == nullptr ? std::string_view() : std::string_view(text); }

}  // namespace

int CString::StringLength(const wchar_t* text) noexcept {
    return text == nullptr ? 0 : static_cast<int>(orv::WideTraits::length(text));
}

// ---- Life ----

CString::CString(const wchar_t* text) : CString(text, StringLength(text)) {}

CString::CString(const wchar_t* text, int length) : text_(empty()) {
    if (text != nullptr && length > 0) {
        text_ = orv::allocateText(length);
        orv::WideTraits::copy(text_, text, static_cast<std::size_t>(length));
        setLength(length);
    }
}

CString::CString(const char* text) : CString() { *this = text; }

CString::CString(const char* text, int length) : CString() {
    if (text == nullptr || length <= 0) return;
    const orv::WideString wide = fromNarrow(std::string_view(text, static_cast<std::size_t>(length)));
    SetString(wide.data(), static_cast<int>(wide.size()));
}

CString::CString(wchar_t ch, int count) : CString() {
    if (count <= 0) return;
    orv::WideTraits::assign(writable(count, false), static_cast<std::size_t>(count), ch);
    setLength(count);
}

// A reference to characters that have not been counted so far, or a copy of locked ones.
wchar_t* CString::copyOfOwned(wchar_t* text) {
    if (dataOf(text)->references.load(std::memory_order_relaxed) != orv::StringData::kLocked) {
        orv::shareFromPage(*dataOf(text));
        return text;
    }
    CString copy(text, dataOf(text)->length);
    return std::exchange(copy.text_, empty());
}

void CString::free(wchar_t* text) noexcept { orv::freeText(text); }

CString& CString::operator=(const wchar_t* text) {
    SetString(text);
    return *this;
}

CString& CString::operator=(const char* text) {
    const orv::WideString wide = fromNarrow(viewOf(text));
    SetString(wide.data(), static_cast<int>(wide.size()));
    return *this;
}

CString& CString::operator=(wchar_t ch) {
    SetString(&ch, 1);
    return *this;
}

CString& CString::operator+=(const char* text) {
    const orv::WideString wide = fromNarrow(viewOf(text));
    Append(wide.data(), static_cast<int>(wide.size()));
    return *this;
}

// ---- The buffer ----

bool CString::holds(const wchar_t* text) const noexcept {
    return !std::less<const wchar_t*>()(text, text_) && std::less<const wchar_t*>()(text, text_ + data()->length);
}

// Characters of this string's own with room for `capacity`, the old ones kept or not; the length stays when they are.
wchar_t* CString::writable(int capacity, bool keep) {
    if (!isShared() && data()->capacity >= capacity) return text_;
    const int length = keep ? GetLength() : 0;
    // A string that grows by appending grows by half of itself, so that building a text takes linear time.
    int wanted = capacity > length ? capacity : length;
    if (keep && !isShared() && wanted < orv::kMaximumTextLength / 2) {
        const int grown = data()->capacity + data()->capacity / 2;
        if (grown > wanted) wanted = grown;
    }
    wchar_t* made = orv::allocateText(wanted);
    orv::WideTraits::copy(made, text_, static_cast<std::size_t>(length));
    if (data()->references.load(std::memory_order_relaxed) == orv::StringData::kLocked) {
        dataOf(made)->references.store(orv::StringData::kLocked, std::memory_order_relaxed);
    }
    release(text_);
    text_ = made;
    setLength(length);
    return text_;
}

wchar_t* CString::GetBuffer() { return writable(GetLength(), true); }

wchar_t* CString::GetBuffer(int minimum) { return writable(minimum > GetLength() ? minimum : GetLength(), true); }

wchar_t* CString::GetBufferSetLength(int length) {
    if (length < 0) orv::throwInvalidArgument();
    GetBuffer(length);
    setLength(length);
    return text_;
}

void CString::ReleaseBuffer(int length) {
    if (length == -1) {
        const wchar_t* nul = orv::WideTraits::find(text_, static_cast<std::size_t>(GetAllocLength()), 0);
        length = nul == nullptr ? GetAllocLength() : static_cast<int>(nul - text_);
    }
    ReleaseBufferSetLength(length);
}

void CString::ReleaseBufferSetLength(int length) {
    if (length < 0 || length > GetAllocLength()) orv::throwInvalidArgument();
    if (isShared()) {  // nobody had asked for the buffer
        Truncate(length);
    } else {
        setLength(length);
    }
}

wchar_t* CString::LockBuffer() {
    writable(GetLength() > 0 ? GetLength() : 1, true);  // even an empty text gets characters of its own
    data()->references.store(orv::StringData::kLocked, std::memory_order_relaxed);
    return text_;
}

void CString::UnlockBuffer() noexcept {
    if (data()->references.load(std::memory_order_relaxed) == orv::StringData::kLocked) {
        data()->references.store(1, std::memory_order_relaxed);
    }
}

void CString::Preallocate(int length) {
    if (length > 0) GetBuffer(length);
}

void CString::FreeExtra() {
    if (!isShared() && data()->capacity > GetLength() + 8) {
        CString exact(text_, GetLength());
        if (data()->references.load(std::memory_order_relaxed) == orv::StringData::kLocked) exact.LockBuffer();
        swap(exact);
    }
}

// ---- Assigning and appending ----

void CString::Empty() noexcept {
    if (data()->references.load(std::memory_order_relaxed) == orv::StringData::kLocked) {
        setLength(0);
    } else {
        release(std::exchange(text_, empty()));
    }
}

void CString::SetString(const wchar_t* text) { SetString(text, StringLength(text)); }

void CString::SetString(const wchar_t* text, int length) {
    if (text == nullptr || length <= 0) {
        Empty();
        return;
    }
    if (holds(text)) {  // a part of this string
        const int first = static_cast<int>(text - text_);
        keepRange(first, length < GetLength() - first ? length : GetLength() - first);
        return;
    }
    orv::WideTraits::copy(writable(length, false), text, static_cast<std::size_t>(length));
    setLength(length);
}

// Makes a part of this string the whole; `length` characters from `first` on are inside it.
void CString::keepRange(int first, int length) {
    if (first == 0 && length == GetLength()) return;
    if (length == 0) {
        Empty();
    } else if (isShared()) {
        *this = CString(text_ + first, length);
    } else {
        orv::WideTraits::move(text_, text_ + first, static_cast<std::size_t>(length));
        setLength(length);
    }
}

void CString::Append(const wchar_t* text) { Append(text, StringLength(text)); }

void CString::Append(const CString& text) {
    if (IsEmpty() && data()->references.load(std::memory_order_relaxed) != orv::StringData::kLocked) {
        *this = text;
    } else {
        Append(text.text_, text.GetLength());
    }
}

void CString::Append(const wchar_t* text, int length) {
    if (text == nullptr || length <= 0) return;
    const int old = GetLength();
    const std::ptrdiff_t inside = holds(text) ? text - text_ : -1;
    wchar_t* to = writable(orv::sumOfLengths(old, length), true);
    if (inside >= 0) text = to + inside;
    orv::WideTraits::copy(to + old, text, static_cast<std::size_t>(length));
    setLength(old + length);
}

void CString::AppendChar(wchar_t ch) {
    const int old = GetLength();
    writable(orv::sumOfLengths(old, 1), true)[old] = ch;
    setLength(old + 1);
}

CString CString::joined(const wchar_t* a, int aLength, const wchar_t* b, int bLength) {
    CString result;
    const int length = orv::sumOfLengths(aLength, bLength);
    if (length == 0) return result;
    wchar_t* to = result.writable(length, false);
    orv::WideTraits::copy(to, a, static_cast<std::size_t>(aLength));
    orv::WideTraits::copy(to + aLength, b, static_cast<std::size_t>(bLength));
    result.setLength(length);
    return result;
}
