// Cutting texts and taking characters out of them.
#include "framework/text_search.h"
#include "orv/string_utilities.h"
#include "text/views.h"

namespace {

using orv::WideView;

// A copy of a text without the characters for which `change` gives 0, the others as it gives them.
template <class Change>
CString changed(const CString& text, Change change) {
    CString result = text;
    wchar_t* const characters = result.GetBuffer();
    int kept = 0;
    for (int i = 0; i < text.GetLength(); ++i) {
        if (const wchar_t ch = change(characters[i]); ch != 0) characters[kept++] = ch;
    }
    result.ReleaseBufferSetLength(kept);
    return result;
}

}  // namespace

CString orvStrUtil::SubStrLeftFromFirstOccurence(const CString& text, wchar_t ch) {
    const WideView all = orv::viewOf(text);
    const std::size_t at = orv::findUnit(all.data(), all.size(), ch);
    return at == all.size() ? CString() : text.Left(static_cast<int>(at));
}

CString orvStrUtil::SubStrLeftFromLastOccurence(const CString& text, wchar_t ch) {
    const int at = text.ReverseFind(ch);
    return at < 0 ? CString() : text.Left(at);
}

CString orvStrUtil::SubStrRightFromFirstOccurence(const CString& text, wchar_t ch) {
    const WideView all = orv::viewOf(text);
    const std::size_t at = orv::findUnit(all.data(), all.size(), ch);
    return at == all.size() ? text : text.Mid(static_cast<int>(at) + 1);
}

CString orvStrUtil::SubStrRightFromLastOccurence(const CString& text, wchar_t ch) {
    const int at = text.ReverseFind(ch);
    return at < 0 ? text : text.Mid(at + 1);
}

void orvStrUtil::separatedStringToArray(CString separator, CString text, CStringArray& out) {
    const WideView all = orv::viewOf(text);
    const WideView between = orv::viewOf(separator);
    std::size_t start = 0;
    if (!between.empty()) {
        for (std::size_t at = orv::findText(all, between, 0); at != WideView::npos;
             at = orv::findText(all, between, start)) {
            out.Add(orv::textOf(all.substr(start, at - start)));
            start = at + between.size();
        }
    }
    if (start < all.size()) out.Add(start == 0 ? text : orv::textOf(all.substr(start)));
}

CString orvStrUtil::removeAllNumeric(const CString& text) {
    return changed(text, [](wchar_t ch) { return ch >= L'0' && ch <= L'9' ? L'\0' : ch; });
}

CString orvStrUtil::removeAllNonNumeric(const CString& text) {
    return changed(text, [](wchar_t ch) {
        if (ch == L',') return L'.';
        return ch == L'-' || ch == L'.' || (ch >= L'0' && ch <= L'9') ? ch : L'\0';
    });
}
