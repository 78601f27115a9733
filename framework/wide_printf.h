// The one wide printf of the library, the same in both flavours and in every locale.
//
// Flags "-+ #0", width and precision (numbers or "*"), sizes h hh l ll I32 I64 I z j t w, conversions
//   d i u o x X     integers                      e E f F g G a A   doubles, exponents of at least two digits
//   c s             wide; with h narrow           C S               narrow; with l or w wide
//   p               16 hexadecimal digits         %                 a percent sign
// A null text prints "(null)". An unknown conversion is copied as it stands and takes no argument. Widths and
// precisions above one million count as one million.
#pragma once

#include <cstdarg>

#include "orv/wide.h"

namespace orv {

/// Appends the formatted text to `out`. A null format appends nothing.
void appendFormatted(WideString& out, const wchar_t* format, va_list arguments);

}  // namespace orv
