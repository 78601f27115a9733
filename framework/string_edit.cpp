// CString: changing single characters, ranges, case and ends.
#include "framework/characters.h"
#include "framework/string_data.h"
#include "orv/framework/string.h"

namespace {

bool isIn(wchar_t ch, const wchar_t* characters) {
    if (characters == nullptr) return false;
    for (; *characters != 0; ++characters) {
        if (*characters == ch) return true;
    }
    return false;
}

std::size_t size(int count) { return static_cast<std::size_t>(count); }

// How many characters at the start (the end) of a text satisfy a condition.
template <class Condition>
int countAtStart(const CString& text, Condition condition) {
    const int length = text.GetLength();
    int count = 0;
    while (count < length && condition(text.GetString()[count]))
        ++count;
    return count;
}

template <class Condition>
int countAtEnd(const CString& text, Condition condition) {
    const int length = text.GetLength();
    int count = 0;
    while (count < length && condition(text.GetString()[length - 1 - count]))
        ++count;
    return count;
}

}  // namespace

void CString::SetAt(int index, wchar_t ch) {
    if (index < 0 || index >= GetLength()) orv::throwInvalidArgument();
    GetBuffer()[index] = ch;
}

void CString::Truncate(int length) {
    if (length < 0) length = 0;
    if (length < GetLength()) keepRange(0, length);
}

int CString::Delete(int index, int count) {
    if (index < 0) index = 0;
    const int length = GetLength();
    if (index >= length || count <= 0) return length;
    if (count > length - index) count = length - index;
    wchar_t* text = GetBuffer();
    orv::WideTraits::move(text + index, text + index + count, size(length - index - count));
    setLength(length - count);
    return length - count;
}

int CString::insertCharacters(int index, const wchar_t* text, int added) {
    const int length = GetLength();
    if (added == 0) return length;
    if (index < 0) index = 0;
    if (index > length) index = length;
    const CString copy = holds(text) ? CString(text, added) : CString();
    if (!copy.IsEmpty()) text = copy.text_;
    wchar_t* to = GetBuffer(orv::sumOfLengths(length, added));
    orv::WideTraits::move(to + index + added, to + index, size(length - index));
    orv::WideTraits::copy(to + index, text, size(added));
    setLength(length + added);
    return length + added;
}

int CString::Insert(int index, const wchar_t* text) { return insertCharacters(index, text, StringLength(text)); }

int CString::Insert(int index, wchar_t ch) { return insertCharacters(index, &ch, 1); }

int CString::Replace(wchar_t from, wchar_t to) {
    int count = 0;
    if (from == to) return 0;
    for (int i = Find(from); i >= 0 && i < GetLength(); ++i) {
        if (text_[i] != from) continue;
        GetBuffer()[i] = to;
        ++count;
    }
    return count;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const int fromLength = StringLength(from);
    if (fromLength == 0) return 0;
    int at = Find(from);
    if (at < 0) return 0;
    const int toLength = StringLength(to);
    int count = 0;
    int copied = 0;
    CString result;
    result.Preallocate(GetLength());
    for (; at >= 0; at = Find(from, copied)) {
        result.Append(text_ + copied, at - copied);
        result.Append(to, toLength);
        copied = at + fromLength;
        ++count;
    }
    result.Append(text_ + copied, GetLength() - copied);
    SetString(result.text_, result.GetLength());
    return count;
}

int CString::Remove(wchar_t ch) {
    if (Find(ch) < 0) return 0;
    wchar_t* text = GetBuffer();
    const int length = GetLength();
    int kept = 0;
    for (int i = 0; i < length; ++i) {
        if (text[i] != ch) text[kept++] = text[i];
    }
    setLength(kept);
    return length - kept;
}

CString& CString::MakeUpper() {
    if (IsEmpty()) return *this;
    wchar_t* text = GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = orv::toUpper(text[i]);
    return *this;
}

CString& CString::MakeLower() {
    if (IsEmpty()) return *this;
    wchar_t* text = GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = orv::toLower(text[i]);
    return *this;
}

CString& CString::MakeReverse() {
    if (IsEmpty()) return *this;
    wchar_t* text = GetBuffer();
    for (int i = 0, j = GetLength() - 1; i < j; ++i, --j)
        std::swap(text[i], text[j]);
    return *this;
}

CString& CString::TrimLeft() {
    const int count = countAtStart(*this, orv::isSpace);
    keepRange(count, GetLength() - count);
    return *this;
}

CString& CString::TrimLeft(wchar_t ch) {
    const int count = countAtStart(*this, [ch](wchar_t c) { return c == ch; });
    keepRange(count, GetLength() - count);
    return *this;
}

CString& CString::TrimLeft(const wchar_t* characters) {
    const int count = countAtStart(*this, [characters](wchar_t c) { return isIn(c, characters); });
    keepRange(count, GetLength() - count);
    return *this;
}

CString& CString::TrimRight() {
    Truncate(GetLength() - countAtEnd(*this, orv::isSpace));
    return *this;
}

CString& CString::TrimRight(wchar_t ch) {
    Truncate(GetLength() - countAtEnd(*this, [ch](wchar_t c) { return c == ch; }));
    return *this;
}

CString& CString::TrimRight(const wchar_t* characters) {
    Truncate(GetLength() - countAtEnd(*this, [characters](wchar_t c) { return isIn(c, characters); }));
    return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(wchar_t ch) { return TrimRight(ch).TrimLeft(ch); }
CString& CString::Trim(const wchar_t* characters) { return TrimRight(characters).TrimLeft(characters); }
