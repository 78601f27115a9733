#include "localization/translate.h"

namespace orv {

CString translate(const CString& text) {
    if (text.GetLength() == 0 || text[0] != L'@') return text;
    const int end = text.Find(L'@', 1);
    return end < 0 ? text : text.Mid(end + 1);
}

CString translate(const wchar_t* text) { return translate(CString(text)); }

CString translateFormat(const wchar_t* text) { return translate(text); }

}  // namespace orv
