// The library's own texts in the current language.
#pragma once

#include "orv/framework/string.h"

namespace orv {

/// A text or key of the library ("Syntaxfehler", "@Einheit@Meter") in the current language; null gives "".
CString translate(const wchar_t* text);
CString translate(const CString& text);

/// The same for a text that is used as a printf format: where a translation's directives differ from the source's, the
/// German text.
CString translateFormat(const wchar_t* text);

/// Grows whenever the results of translate() may have become others. Free of the lock.
unsigned translationGeneration() noexcept;

}  // namespace orv
