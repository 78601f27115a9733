#pragma once

#include "orv/geometry/vectors.h"

/// Writes 1 to the point, then 20 through the vector, and returns the point's x.
double writeThroughVector(orvBasePoint3d& point, orvBaseVector3d& vector);
