// Looking at the ends of texts.
#include "framework/characters.h"
#include "orv/string_utilities.h"
#include "text/views.h"

orvStrUtil::~orvStrUtil() = default;

namespace {

using orv::WideView;

bool sameText(WideView a, WideView b, bool caseSensitive) {
    if (orv::firstMismatch(a.data(), b.data(), a.size()) == a.size()) return true;
    if (caseSensitive) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && orv::foldCase(a[i]) != orv::foldCase(b[i])) return false;
    }
    return true;
}

}  // namespace

bool orvStrUtil::IsEmpty(const wchar_t* text) { return text == nullptr || *text == 0; }

wchar_t orvStrUtil::GetLastChar(const CString& text) { return text.IsEmpty() ? L'\0' : text[text.GetLength() - 1]; }

bool orvStrUtil::BeginsWith(const wchar_t* text, const wchar_t* prefix, bool caseSensitive) {
    const WideView all = orv::viewOf(text);
    const WideView wanted = orv::viewOf(prefix);
    return !wanted.empty() && wanted.size() <= all.size() &&
           sameText(all.substr(0, wanted.size()), wanted, caseSensitive);
}

bool orvStrUtil::EndsWith(const wchar_t* text, const wchar_t* suffix, bool caseSensitive) {
    const WideView all = orv::viewOf(text);
    const WideView wanted = orv::viewOf(suffix);
    return !wanted.empty() && wanted.size() <= all.size() &&
           sameText(all.substr(all.size() - wanted.size()), wanted, caseSensitive);
}

bool orvStrUtil::NextIsBreak(const wchar_t* text) {
    return text != nullptr && (text[0] == L'\n' || (text[0] == L'\r' && text[1] == L'\n'));
}
