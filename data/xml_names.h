// What XML allows.
#pragma once

#include "orv/wide.h"

namespace orv {

/// A name without a prefix (XML 1.0, fifth edition).
bool isXmlName(WideView text);
/// Only characters that a document may hold.
bool isXmlText(WideView text);

}  // namespace orv
