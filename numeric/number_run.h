// The characters of a number in an entry field.
#pragma once

#include "orv/wide.h"

namespace orv {

inline constexpr std::size_t kLongestToken = 29;

/// Which commas end a number.
enum class CommaMeans { kDecimal, kSeparatorUnlessDigit, kSeparator };

/// The run of number characters at `at`: digits, "," "." "E" "X", and the one behind an "E".
std::size_t numberRunLength(const wchar_t* at, const wchar_t* end, CommaMeans comma);

/// The value of a whole run; false if it is no number (1.2.3, 1E).
bool numberOfRun(WideView run, double& value);

/// Whether a comma with three digits behind it may have meant thousands.
bool mayMeanThousands(WideView run);

}  // namespace orv
