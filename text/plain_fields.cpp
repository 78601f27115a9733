// Fields of plainly separated texts, without the escapes of records.
#include "framework/text_search.h"
#include "orv/string_utilities.h"
#include "text/views.h"

namespace {

using orv::WideView;

CString fieldOf(WideView text, int n, WideView separator) {
    if (n < 1) return {};
    for (;;) {
        const std::size_t at = separator.empty() ? WideView::npos : orv::findText(text, separator, 0);
        const bool last = at == WideView::npos;
        if (n == 1) {
            WideView field = text.substr(0, at);
            if (last && !field.empty() && field.back() == L'\n') field.remove_suffix(1);
            return orv::textOf(field);
        }
        if (last) return {};
        text.remove_prefix(at + separator.size());
        --n;
    }
}

}  // namespace

CString substr(const CString& text, int n, const CString& separator) {
    return fieldOf(orv::viewOf(text), n, orv::viewOf(separator));
}

CString substr(const CString& text, int n, const wchar_t* separator) {
    return fieldOf(orv::viewOf(text), n, orv::viewOf(separator));
}

bool substr(const wchar_t* text, int n, wchar_t separator, wchar_t* out) {
    if (text == nullptr || out == nullptr) return false;
    if (n < 1) {
        *out = 0;
        return false;
    }
    for (; n > 1; --n) {
        text += orv::findUnitOrEnd(text, separator);
        if (*text == 0) return false;
        ++text;
    }
    for (; *text != 0 && *text != L'\n' && *text != separator; ++text)
        *out++ = *text;
    *out = 0;
    return true;
}
