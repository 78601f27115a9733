// Formats and texts of numbers in entry fields.
#pragma once

#include "orv/framework/string.h"
#include "orv/wide.h"

namespace orv {

/// Whether a text is exactly one floating-point directive of printf, without "*", with literal text around it.
bool isNumberFormat(WideView format);

/// See NumericString::strValTpunkt.
CString withThousands(const CString& number);

}  // namespace orv
