// Every header twice in one file, in either order.
#include "all_headers.inc"
#include "orv/orv.h"
