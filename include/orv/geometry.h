// Small value types for planar and spatial geometry: points, vectors, lines, planes, boxes, rectangles.
//
// Rules of the family:
// - Plain values without base or virtual operations. Nothing allocates and nothing throws (reversePoint3dArray apart,
//   whose element access is checked, and the text of a point). All but orvBaseExtents are trivially copyable.
// - Lengths are in the caller's model units. Angles are in radians unless the name says degrees.
// - Doubles compare with the absolute tolerance 1e-10, strictly: a difference passes when it is smaller. Exceptions are
//   stated where they are.
// - Nothing tests for division by zero: infinities and NaN follow IEEE arithmetic. Every operation is done in double
//   precision in the order stated, without fused operations: hosts compile with -ffp-contract=off, which the package
//   tells them. So results are the same on every system, save where sine, cosine and arc cosine are the system's.
// - No process-wide state: different objects may be used from different threads.
#pragma once

#include "orv/geometry/lines_planes_boxes.h"
#include "orv/geometry/plane_points.h"
#include "orv/geometry/vectors.h"
