// Texts of the interface as views.
#pragma once

#include "framework/vector.h"
#include "orv/framework/string.h"
#include "orv/wide.h"

namespace orv {

/// All characters, also behind a NUL among them.
inline WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

/// Up to the NUL; a null text is empty.
inline WideView viewOf(const wchar_t* text) { return text == nullptr ? WideView() : WideView(text, wideLength(text)); }

/// A copy; the view must be no longer than a CString can be, as every part of one is.
inline CString textOf(WideView view) { return {view.data(), static_cast<int>(view.size())}; }

}  // namespace orv
