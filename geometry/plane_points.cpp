#include "orv/geometry/plane_points.h"

namespace {

constexpr double kPi = 3.141592653589793;

double radians(double degrees) { return (degrees + degrees) * kPi / 360; }

}  // namespace

orvBasePoint2d& orvBasePoint2d::rotateCounterclockwiseRadians(double angle) noexcept {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    setTo(x * c - y * s, x * s + y * c);
    return *this;
}

orvBasePoint2d& orvBasePoint2d::rotateClockwiseRadians(double angle) noexcept {
    return rotateCounterclockwiseRadians(-angle);
}

orvBasePoint2d& orvBasePoint2d::rotateCounterclockwiseDegrees(double degrees) noexcept {
    return rotateCounterclockwiseRadians(radians(degrees));
}

orvBasePoint2d& orvBasePoint2d::rotateClockwiseDegrees(double degrees) noexcept {
    return rotateClockwiseRadians(radians(degrees));
}

CString orvBasePoint2d::toString() const {
    CString text;
    text.Format(L"%f / %f", x, y);
    return text;
}
