#include "localization/translate.h"

#include "localization/key_context.h"
#include "orv/translation.h"
#include "text/views.h"

namespace orv {

CString translate(const wchar_t* text) {
    return CTranslationManager::GetInstance().LibraryModule().TranslateText(text);
}

CString translate(const CString& text) { return translate(text.GetString()); }

CString translateFormat(const wchar_t* text) {
    const CString translated = translate(text);
    if (takeSameArguments(text, translated)) return translated;
    const WideView source = viewOf(text);
    return textOf(source.substr(contextLength(source)));
}

}  // namespace orv
