#include "orv/geometry/vectors.h"

double orvBaseVector3d::getAngleTo(const orvBaseVector3d& v) const noexcept {
    const double cosine = getDotProduct(v) / (getLength() * v.getLength());
    return std::acos(cosine < -1.0 ? -1.0 : cosine > 1.0 ? 1.0 : cosine);
}

orvBaseVector3d& orvBaseVector3d::rotate(const orvBaseVector3d& axis, double angle) noexcept {
    if (angle == 0.0) return *this;
    const orvBaseVector3d n = axis.getNormal();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const double tx = t * n.x;
    const double ty = t * n.y;
    const double xy = tx * n.y;
    const double xz = tx * n.z;
    const double yz = ty * n.z;
    const double xs = n.x * s;
    const double ys = n.y * s;
    const double zs = n.z * s;
    setTo((tx * n.x + c) * x + (xy - zs) * y + (xz + ys) * z,  //
          (xy + zs) * x + (ty * n.y + c) * y + (yz - xs) * z,  //
          (xz - ys) * x + (yz + xs) * y + (t * n.z * n.z + c) * z);
    return *this;
}
