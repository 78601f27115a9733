// CString: comparing, searching and taking parts. Nothing here changes the string.
#include "framework/characters.h"
#include "framework/text_search.h"
#include "orv/framework/string.h"

namespace {

orv::WideView viewOf(const wchar_t* text) {
    return text == nullptr ? orv::WideView()
                           : orv::WideView(text, static_cast<std::size_t>(CString::StringLength(text)));
}

orv::WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

int indexOf(std::size_t found) { return found == orv::WideView::npos ? -1 : static_cast<int>(found); }

CString textOf(orv::WideView view) { return {view.data(), static_cast<int>(view.size())}; }

}  // namespace

// The same characters, NULs among them too: what most equal strings are.
bool CString::same(const wchar_t* a, const wchar_t* b) noexcept {
    const int length = dataOf(a)->length;
    return a == b ||
           (length == dataOf(b)->length && std::memcmp(a, b, static_cast<std::size_t>(length) * sizeof(wchar_t)) == 0);
}

int CString::Compare(const wchar_t* text) const {
    const wchar_t* other = text == nullptr ? L"" : text;
    const wchar_t* own = text_;
    for (; *own == *other; ++own, ++other) {
        if (*own == 0) return 0;
    }
    return *own < *other ? -1 : 1;
}

int CString::CompareNoCase(const wchar_t* text) const {
    const wchar_t* other = text == nullptr ? L"" : text;
    for (const wchar_t* own = text_;; ++own, ++other) {
        const wchar_t a = orv::foldCase(*own);
        const wchar_t b = orv::foldCase(*other);
        if (a != b) return a < b ? -1 : 1;
        if (a == 0) return 0;
    }
}

int CString::Find(wchar_t ch, int start) const {
    if (start < 0 || start > GetLength()) return -1;
    return indexOf(viewOf(*this).find(ch, static_cast<std::size_t>(start)));
}

int CString::Find(const wchar_t* text, int start) const {
    if (text == nullptr || start < 0 || start > GetLength()) return -1;
    return indexOf(orv::findText(viewOf(*this), viewOf(text), static_cast<std::size_t>(start)));
}

int CString::FindOneOf(const wchar_t* characters) const {
    return indexOf(viewOf(*this).find_first_of(viewOf(characters)));
}

int CString::ReverseFind(wchar_t ch) const { return indexOf(viewOf(*this).rfind(ch)); }

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
    if (first < 0) first = 0;
    if (count < 0) count = 0;
    const int length = GetLength();
    if (first > length) first = length;
    if (count > length - first) count = length - first;
    if (count == length) return *this;
    return {text_ + first, count};
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Right(int count) const {
    const int length = GetLength();
    if (count < 0) count = 0;
    return count >= length ? *this : Mid(length - count, count);
}

CString CString::SpanIncluding(const wchar_t* characters) const {
    const orv::WideView all = viewOf(*this);
    return textOf(all.substr(0, all.find_first_not_of(viewOf(characters))));
}

CString CString::SpanExcluding(const wchar_t* characters) const {
    const orv::WideView all = viewOf(*this);
    return textOf(all.substr(0, all.find_first_of(viewOf(characters))));
}

CString CString::Tokenize(const wchar_t* separators, int& start) const {
    const orv::WideView all = viewOf(*this);
    const orv::WideView between = viewOf(separators);
    if (start >= 0 && start < GetLength()) {
        const std::size_t first = all.find_first_not_of(between, static_cast<std::size_t>(start));
        if (first != orv::WideView::npos) {
            std::size_t end = all.find_first_of(between, first);
            if (end == orv::WideView::npos) end = all.size();
            start = static_cast<int>(end) + 1;
            return textOf(all.substr(first, end - first));
        }
    }
    start = -1;
    return {};
}
