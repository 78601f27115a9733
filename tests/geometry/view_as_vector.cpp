// In a file of its own, so that the compiler of the test does not see that both types share the storage.
#include "view_as_vector.h"

double writeThroughVector(orvBasePoint3d& point, orvBaseVector3d& vector) {
    point.x = 1.0;
    vector.x = 2.0;  // the same storage, if `vector` is a view of `point`
    vector *= 10.0;
    return point.x;
}
