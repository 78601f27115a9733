#include <cmath>

#include "orv/matrices.h"

ComplexMatrix::~ComplexMatrix() = default;

bool ComplexMatrix::operator==(const ComplexMatrix& b) const noexcept {
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 2; ++c) {
            if (entries_[r][c].real() != b.entries_[r][c].real()) return false;
            if (entries_[r][c].imag() != b.entries_[r][c].imag()) return false;
        }
    }
    return true;
}

int ComplexMatrix::isNull() const noexcept {
    constexpr double kEpsilon = 2.220446049250313e-16;
    for (const auto& row : entries_) {
        for (const complex& entry : row) {
            if (!(std::fabs(entry.real()) < kEpsilon && std::fabs(entry.imag()) < kEpsilon)) return 0;
        }
    }
    return 1;
}

void ComplexMatrix::watchMatrixEntries() const { watchMatrixEntries(*this); }

void ComplexMatrix::watchMatrixEntries(const ComplexMatrix& matrix) {
    [[maybe_unused]] const CString text = orv::matrixEntriesText(matrix);
}

bool ComplexMatrix::unitTestMatrixMultiplication() {
    ComplexMatrix x;
    ComplexMatrix y;
    ComplexMatrix z;
    ComplexMatrix identity;
    x.setAt(1, 2, 1.0, 0.0);
    x.setAt(2, 1, 1.0, 0.0);
    y.setAt(1, 2, 0.0, -1.0);
    y.setAt(2, 1, 0.0, 1.0);
    z.setAt(1, 1, 1.0, 0.0);
    z.setAt(2, 2, -1.0, 0.0);
    identity.setAt(1, 1, 1.0, 0.0);
    identity.setAt(2, 2, 1.0, 0.0);
    if (x * x != identity || y * y != identity || z * z != identity) return false;
    const ComplexMatrix product = x * y;
    watchMatrixEntries(x);
    watchMatrixEntries(y);
    watchMatrixEntries(product);
    return true;
}

namespace orv {

CString matrixEntriesText(const ComplexMatrix& matrix) {
    CString text(L"\n\t- MatrixEntries -");
    for (int row = 1; row <= 2; ++row) {
        const ComplexMatrix::complex& first = matrix.getAt(row, 1);
        const ComplexMatrix::complex& second = matrix.getAt(row, 2);
        text.AppendFormat(L"\n\t[%d 1] im %g re %g\t[%d 2] im %g re %g", row, first.imag(), first.real(), row,
                          second.imag(), second.real());
    }
    return text;
}

}  // namespace orv
