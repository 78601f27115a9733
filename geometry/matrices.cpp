#include "orv/matrices.h"

orvBaseMatrix3d orvBaseMatrix3d::getRotationMatrix(double angle, const orvBaseVector3d& axis) noexcept {
    const double x = axis.x;
    const double y = axis.y;
    const double z = axis.z;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    return {x * x * t + c,     y * x * t + z * s, z * x * t - y * s,  //
            y * x * t - z * s, y * y * t + c,     z * y * t + x * s,  //
            z * x * t + y * s, z * y * t - x * s, z * z * t + c};
}

orvBaseVector3d orvBaseMatrix3d::solveLGS(const orvBaseVector3d& b) const noexcept {
    const double d = getDeterminant();
    const orvBaseMatrix3d forX(b.x, m[0][1], m[0][2], b.y, m[1][1], m[1][2], b.z, m[2][1], m[2][2]);
    const orvBaseMatrix3d forY(m[0][0], b.x, m[0][2], m[1][0], b.y, m[1][2], m[2][0], b.z, m[2][2]);
    const orvBaseMatrix3d forZ(m[0][0], m[0][1], b.x, m[1][0], m[1][1], b.y, m[2][0], m[2][1], b.z);
    return {forX.getDeterminant() / d, forY.getDeterminant() / d, forZ.getDeterminant() / d};
}

orvBaseMatrix4d orvBaseMatrix4d::getInverse() const noexcept {
    const Minors n(m);
    const double f = 1.0 / n.determinant();
    return {(m[1][1] * n.bottom23 - m[1][2] * n.bottom13 + m[1][3] * n.bottom12) * f,
            (m[0][2] * n.bottom13 - m[0][1] * n.bottom23 - m[0][3] * n.bottom12) * f,
            (m[3][1] * n.top23 - m[3][2] * n.top13 + m[3][3] * n.top12) * f,
            (m[2][2] * n.top13 - m[2][1] * n.top23 - m[2][3] * n.top12) * f,
            (m[1][2] * n.bottom03 - m[1][0] * n.bottom23 - m[1][3] * n.bottom02) * f,
            (m[0][0] * n.bottom23 - m[0][2] * n.bottom03 + m[0][3] * n.bottom02) * f,
            (m[3][2] * n.top03 - m[3][0] * n.top23 - m[3][3] * n.top02) * f,
            (m[2][0] * n.top23 - m[2][2] * n.top03 + m[2][3] * n.top02) * f,
            (m[1][0] * n.bottom13 - m[1][1] * n.bottom03 + m[1][3] * n.bottom01) * f,
            (m[0][1] * n.bottom03 - m[0][0] * n.bottom13 - m[0][3] * n.bottom01) * f,
            (m[3][0] * n.top13 - m[3][1] * n.top03 + m[3][3] * n.top01) * f,
            (m[2][1] * n.top03 - m[2][0] * n.top13 - m[2][3] * n.top01) * f,
            (m[1][1] * n.bottom02 - m[1][0] * n.bottom12 - m[1][2] * n.bottom01) * f,
            (m[0][0] * n.bottom12 - m[0][1] * n.bottom02 + m[0][2] * n.bottom01) * f,
            (m[3][1] * n.top02 - m[3][0] * n.top12 - m[3][2] * n.top01) * f,
            (m[2][0] * n.top12 - m[2][1] * n.top02 + m[2][2] * n.top01) * f};
}

static_assert(orvBaseMatrix3d(2, 0, 0, 0, 4, 0, 0, 0, 8).getDeterminant() == 64);
