// The memory behind a CString: a header, the characters, a closing NUL.
#pragma once

#include <cstdint>

#include "orv/framework/string.h"

namespace orv {

inline constexpr int kMaximumTextLength = 0x3FFFFFF0;

/// Characters for at least `capacity` units (referenced once, length 0), throws std::bad_alloc beyond
/// kMaximumTextLength or when memory runs out.
wchar_t* allocateText(int capacity);
void freeText(wchar_t* text) noexcept;

/// The sum of two lengths; throws std::bad_alloc where it is no text's any more.
int sumOfLengths(int a, int b);

}  // namespace orv
