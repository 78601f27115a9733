// What is wrong with the wordbooks of a folder.
#pragma once

#include "orv/paths.h"

namespace orvtool {

/// Prints one line a language and, if wanted, one a find; returns whether nothing is wrong.
bool checkWordbooks(const CDirPath& folder, const CString& pattern, bool listFinds);

}  // namespace orvtool
