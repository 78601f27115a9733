// The system's headers first, with all their macros.
#include <windows.h>

#include "all_headers.inc"
