// CString: the framework's wide string.
//
// One pointer wide; copies share their characters by an atomic reference count and part company at the first change.
// An object itself is not for several threads at once; copies of it are. Lengths and indices count 16-bit units.
// An index outside the text is handled as the framework does: positions are clamped where a range is meant (Mid, Left,
// Delete, Insert), and raise CInvalidArgException where one character is meant ([], GetAt, SetAt).
// A null text counts as "". Narrow texts are in the system's ANSI code page (on systems that have none: UTF-8).
#pragma once

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "orv/export.h"
#include "orv/framework/exceptions.h"
#include "orv/framework/format_arguments.h"
#include "orv/wide.h"

class ORV_API CString;

namespace orv {

/// Stands in memory directly before the characters of a CString.
struct StringData {
    static constexpr std::int32_t kImmortal = 0;  // shared without counting, never freed; the empty string, for one
    static constexpr std::int32_t kLocked = -1;   // owned by one CString and not to be shared
    static constexpr std::int32_t kAlone = -2;    // in a page, one CString's so far: see text_pages.h

    std::atomic<std::int32_t> references;
    std::int32_t length;
    std::int32_t capacity;  // characters that fit, the closing NUL not counted; below 0: see text_pages.h
};

/// Characters with one reference that a CString takes over; the library's own.
class AdoptedText {
    friend struct StringAccess;
    friend class ::CString;
    explicit AdoptedText(wchar_t* characters) : text(characters) {}
    wchar_t* text;
};

struct StringAccess;  // the library's own

/// The characters (a single NUL) of the shared empty string.
ORV_API const wchar_t* emptyString() noexcept;

}  // namespace orv

class ORV_API CString {
  public:
    using XCHAR = wchar_t;
    using PXSTR = wchar_t*;
    using PCXSTR = const wchar_t*;

    CString() noexcept : text_(empty()) {}
    CString(const CString& other) : text_(other.text_) {
        const std::int32_t references = data()->references.load(std::memory_order_relaxed);
        if (references > 0) {
            data()->references.fetch_add(1, std::memory_order_relaxed);
        } else if (references != orv::StringData::kImmortal) {
            text_ = copyOfOwned(other.text_);
        }
    }
    explicit CString(orv::AdoptedText adopted) noexcept : text_(adopted.text) {}
    CString(CString&& other) noexcept : text_(std::exchange(other.text_, empty())) {}
    CString(const wchar_t* text);
    explicit CString(const char* text);
    explicit CString(wchar_t ch, int count = 1);
    CString(const wchar_t* text, int length);
    CString(const char* text, int length);
    ~CString() { release(text_); }

    CString& operator=(const CString& other) {
        if (text_ != other.text_) CString(other).swap(*this);
        return *this;
    }
    CString& operator=(CString&& other) noexcept {
        swap(other);
        return *this;
    }
    CString& operator=(const wchar_t* text);
    CString& operator=(const char* text);
    CString& operator=(wchar_t ch);

    // ---- Looking ----
    int GetLength() const noexcept { return data()->length; }
    bool IsEmpty() const noexcept { return data()->length == 0; }
    const wchar_t* GetString() const noexcept { return text_; }
    operator const wchar_t*() const noexcept { return text_; }
    /// The character at an index in 0..GetLength(); the last one is the closing NUL.
    wchar_t operator[](int index) const {
        if (index < 0 || index > GetLength()) orv::throwInvalidArgument();
        return text_[index];
    }
    wchar_t GetAt(int index) const { return (*this)[index]; }

    // ---- Changing ----
    /// Sets one existing character.
    void SetAt(int index, wchar_t ch);
    void Empty() noexcept;
    /// The text may be a part of this string.
    void SetString(const wchar_t* text, int length);
    void SetString(const wchar_t* text);
    void Append(const wchar_t* text, int length);
    void Append(const wchar_t* text);
    void Append(const CString& text);
    void AppendChar(wchar_t ch);
    CString& operator+=(const CString& text) {
        Append(text);
        return *this;
    }
    CString& operator+=(const wchar_t* text) {
        Append(text);
        return *this;
    }
    CString& operator+=(const char* text);
    CString& operator+=(wchar_t ch) {
        AppendChar(ch);
        return *this;
    }
    /// Removes up to `count` characters from `index` on; returns the new length.
    int Delete(int index, int count = 1);
    /// Inserts before `index` (clamped into the text); returns the new length.
    int Insert(int index, const wchar_t* text);
    int Insert(int index, wchar_t ch);
    /// Replaces every occurrence; returns how many there were. An empty `from` replaces nothing.
    int Replace(wchar_t from, wchar_t to);
    int Replace(const wchar_t* from, const wchar_t* to);
    /// Removes every `ch`; returns how many there were.
    int Remove(wchar_t ch);
    /// Cuts to at most `length` characters.
    void Truncate(int length);
    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    /// White space, or the given character or characters, at one end or both.
    CString& Trim();
    CString& Trim(wchar_t ch);
    CString& Trim(const wchar_t* characters);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t ch);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t ch);
    CString& TrimRight(const wchar_t* characters);

    // ---- Comparing, up to the first NUL as the operators do: negative, 0 or positive ----
    /// By the values of the characters.
    int Compare(const wchar_t* text) const;
    /// The same after folding both sides with the library's character table.
    int CompareNoCase(const wchar_t* text) const;

    // ---- Searching: an index, or -1 ----
    int Find(wchar_t ch, int start = 0) const;
    int Find(const wchar_t* text, int start = 0) const;
    int FindOneOf(const wchar_t* characters) const;
    int ReverseFind(wchar_t ch) const;

    // ---- Taking parts ----
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    CString SpanIncluding(const wchar_t* characters) const;
    CString SpanExcluding(const wchar_t* characters) const;
    /// The next piece that holds none of `separators`, from `start` on, which then stands behind the piece's end;
    /// at the end of the text "" with start = -1.
    CString Tokenize(const wchar_t* separators, int& start) const;

    // ---- Formatting (orv's one wide printf: %s is a wide text, %hs and %S a narrow one, %I64d is known) ----
    template <class... Arguments>
    void Format(const wchar_t* format, const Arguments&... arguments) {
        formatC(format, orv::formatArgument(arguments)...);
    }
    template <class... Arguments>
    void AppendFormat(const wchar_t* format, const Arguments&... arguments) {
        appendFormatC(format, orv::formatArgument(arguments)...);
    }
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormatV(const wchar_t* format, va_list arguments);

    // ---- The buffer ----
    /// The characters, not shared, for at least `minimum` of them; ReleaseBuffer() must follow the writing.
    wchar_t* GetBuffer();
    wchar_t* GetBuffer(int minimum);
    /// The same with the length set to `length`; what is new is not initialised.
    wchar_t* GetBufferSetLength(int length);
    /// Sets the length: as given, or up to the first NUL with -1.
    void ReleaseBuffer(int length = -1);
    void ReleaseBufferSetLength(int length);
    /// Makes the characters this string's own until UnlockBuffer(): copies made meanwhile do not share them.
    wchar_t* LockBuffer();
    void UnlockBuffer() noexcept;
    int GetAllocLength() const noexcept { return data()->capacity < 0 ? data()->length : data()->capacity; }
    void Preallocate(int length);
    void FreeExtra();

    static int StringLength(const wchar_t* text) noexcept;

    // ---- Joining ----
    friend CString operator+(const CString& a, const CString& b) { return joined(a, a.GetLength(), b, b.GetLength()); }
    friend CString operator+(const CString& a, const wchar_t* b) {
        return joined(a, a.GetLength(), b, StringLength(b));
    }
    friend CString operator+(const wchar_t* a, const CString& b) {
        return joined(a, StringLength(a), b, b.GetLength());
    }
    friend CString operator+(const CString& a, wchar_t b) { return joined(a, a.GetLength(), &b, 1); }
    friend CString operator+(wchar_t a, const CString& b) { return joined(&a, 1, b, b.GetLength()); }

    // ---- Operators of comparison ----
    friend bool operator==(const CString& a, const CString& b) { return same(a.text_, b.text_) || a.Compare(b) == 0; }
    friend bool operator==(const CString& a, const wchar_t* b) { return a.Compare(b) == 0; }
    friend bool operator==(const wchar_t* a, const CString& b) { return b.Compare(a) == 0; }
    friend bool operator!=(const CString& a, const CString& b) { return !(a == b); }
    friend bool operator!=(const CString& a, const wchar_t* b) { return !(a == b); }
    friend bool operator!=(const wchar_t* a, const CString& b) { return !(b == a); }
    friend bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
    friend bool operator<(const CString& a, const wchar_t* b) { return a.Compare(b) < 0; }
    friend bool operator<(const wchar_t* a, const CString& b) { return b.Compare(a) > 0; }
    friend bool operator>(const CString& a, const CString& b) { return b < a; }
    friend bool operator>(const CString& a, const wchar_t* b) { return b < a; }
    friend bool operator>(const wchar_t* a, const CString& b) { return b < a; }
    friend bool operator<=(const CString& a, const CString& b) { return !(b < a); }
    friend bool operator<=(const CString& a, const wchar_t* b) { return !(b < a); }
    friend bool operator<=(const wchar_t* a, const CString& b) { return !(b < a); }
    friend bool operator>=(const CString& a, const CString& b) { return !(a < b); }
    friend bool operator>=(const CString& a, const wchar_t* b) { return !(a < b); }
    friend bool operator>=(const wchar_t* a, const CString& b) { return !(a < b); }

  private:
    friend struct orv::StringAccess;

    static wchar_t* empty() noexcept { return const_cast<wchar_t*>(orv::emptyString()); }
    static wchar_t* copyOfOwned(wchar_t* text);
    static void release(wchar_t* text) noexcept {
        const std::int32_t references = dataOf(text)->references.load(std::memory_order_acquire);
        if (references == orv::StringData::kImmortal) return;
        if (references > 1 && dataOf(text)->references.fetch_sub(1, std::memory_order_acq_rel) > 1) return;
        free(text);
    }
    static void free(wchar_t* text) noexcept;
    static bool same(const wchar_t* a, const wchar_t* b) noexcept;
    static CString joined(const wchar_t* a, int aLength, const wchar_t* b, int bLength);
    static orv::StringData* dataOf(const wchar_t* text) noexcept {
        return reinterpret_cast<orv::StringData*>(const_cast<wchar_t*>(text)) - 1;
    }
    orv::StringData* data() const noexcept { return dataOf(text_); }
    /// Whether the characters are not to be written: others see them, or they are in a page.
    bool isShared() const noexcept {
        const std::int32_t references = data()->references.load(std::memory_order_acquire);
        return references > 1 || references == orv::StringData::kImmortal || data()->capacity < 0;
    }
    bool holds(const wchar_t* text) const noexcept;
    void swap(CString& other) noexcept { std::swap(text_, other.text_); }
    wchar_t* writable(int capacity, bool keep);
    void setLength(int length) noexcept {
        data()->length = length;
        text_[length] = 0;
    }
    void keepRange(int first, int length);
    int insertCharacters(int index, const wchar_t* text, int length);
    void formatC(const wchar_t* format, ...);
    void appendFormatC(const wchar_t* format, ...);

    wchar_t* text_;
};

static_assert(sizeof(CString) == sizeof(void*));

namespace orv {

template <class Text>
requires std::is_base_of_v<CString, Text>
struct FormatText<Text> {
    static constexpr bool kIsText = true;
    static const wchar_t* characters(const CString& text) { return text.GetString(); }
};

}  // namespace orv
