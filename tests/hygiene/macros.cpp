// Hosts may have macros named min and max. The standard headers come first: they undo such macros.
#include <algorithm>
#include <array>
#include <complex>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))

#include "all_headers.inc"
