// Units and groups by the names of their enumerators.
#pragma once

#include "orv/units.h"
#include "orv/wide.h"

namespace orv {

/// ASCII letters in any case; eUnitUndefined for a name that is not known.
enUnit unitByName(WideView name);

}  // namespace orv
