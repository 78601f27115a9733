#include <algorithm>
#include <limits>
#include <new>

#include "geometry/axis_index.h"
#include "geometry/axis_state.h"
#include "orv/interpolation.h"

namespace {

// The cells of a grid of zeros. Counts are at least 1.
std::vector<double> newCells(int rows, int cols) {
    const std::uint64_t count = static_cast<std::uint64_t>(rows) * static_cast<std::uint64_t>(cols);
    if (count > static_cast<std::uint64_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(double)) {
        throw std::bad_alloc();
    }
    return std::vector<double>(static_cast<std::size_t>(count), 0.0);
}

struct Ends {
    double low;
    double high;
};

// One pass over an axis that may be anything: where the argument's segment ends (an index in 1..count-1, as in
// AxisIndex), or 0 when the axis does not run strictly in one direction.
template <bool kAscending>
std::size_t checkAndFind(const double* values, std::size_t count, std::size_t stride, double x) noexcept {
    unsigned ordered = 1;
    std::size_t passed = 0;
    double previous = values[0];
    for (std::size_t i = 1; i < count; ++i) {
        const double next = values[i * stride];
        ordered &= static_cast<unsigned>(kAscending ? next > previous : next < previous);
        passed += static_cast<std::size_t>(kAscending ? previous < x : previous > x);
        previous = next;
    }
    // The last value is never passed: the argument lies between the ends.
    return ordered == 0 ? 0 : std::max<std::size_t>(passed, 1);
}

Ends endsOf(const double* values, std::size_t count, std::size_t stride) noexcept {
    const double first = values[0];
    const double last = values[(count - 1) * stride];
    return values[stride] > first ? Ends{first, last} : Ends{last, first};
}

std::size_t checkAndFindEither(const double* values, std::size_t count, std::size_t stride, double x) noexcept {
    return values[stride] > values[0] ? checkAndFind<true>(values, count, stride, x)
                                      : checkAndFind<false>(values, count, stride, x);
}

}  // namespace

CLinearInterpolation2D::CLinearInterpolation2D(int rows, int cols)
    : rows_(std::max(rows, 1)), cols_(std::max(cols, 1)), owned_(newCells(rows_, cols_)) {}

CLinearInterpolation2D::CLinearInterpolation2D(int rows, int cols, double* data)
    : rows_(std::max(rows, 1)), cols_(std::max(cols, 1)), wrapped_(data) {
    if (data == nullptr) owned_ = newCells(rows_, cols_);
}

CLinearInterpolation2D::CLinearInterpolation2D(const CLinearInterpolation2D& other)
    : rows_(other.rows_),
      cols_(other.cols_),
      owned_(other.cells(), other.cells() + static_cast<std::size_t>(rows_) * other.stride()) {}

CLinearInterpolation2D::CLinearInterpolation2D(const CLinearInterpolation2D* other)
    : CLinearInterpolation2D(other != nullptr ? *other : CLinearInterpolation2D()) {}

CLinearInterpolation2D& CLinearInterpolation2D::operator=(const CLinearInterpolation2D& other) {
    if (this == &other) return *this;
    CLinearInterpolation2D copy(other);
    rows_ = copy.rows_;
    cols_ = copy.cols_;
    owned_ = std::move(copy.owned_);
    wrapped_ = nullptr;
    state_ = State::kUnknown;
    return *this;
}

CLinearInterpolation2D::~CLinearInterpolation2D() = default;

double CLinearInterpolation2D::GetAt(int row, int col) const noexcept {
    if (!isInside(row, col)) return orv::kNoTableValue;
    return cells()[static_cast<std::size_t>(row) * stride() + static_cast<std::size_t>(col)];
}

void CLinearInterpolation2D::SetAt(int row, int col, double value) noexcept {
    if (!isInside(row, col)) return;
    double* data = wrapped_ != nullptr ? wrapped_ : owned_.data();
    data[static_cast<std::size_t>(row) * stride() + static_cast<std::size_t>(col)] = value;
    if (row == 0 || col == 0) state_ = State::kUnknown;
}

orv::TableCheck CLinearInterpolation2D::check() const noexcept {
    if (rows_ < 3 || cols_ < 3) return {orv::TableFault::kTooFewPoints, -1};
    const std::size_t row = orv::firstOffender(cells() + stride(), static_cast<std::size_t>(rows_) - 1, stride());
    if (row != 0) return {orv::TableFault::kXOrder, static_cast<int>(row) + 1};
    const std::size_t column = orv::firstOffender(cells() + 1, static_cast<std::size_t>(cols_) - 1, 1);
    if (column != 0) return {orv::TableFault::kYOrder, static_cast<int>(column) + 1};
    return {};
}

orv::TableCheck CLinearInterpolation2D::prepare() const {
    if (wrapped_ != nullptr) return check();
    if (state_ == State::kUsable) return {};
    const orv::TableCheck found = check();
    if (state_ == State::kUnusable) return found;  // known: nothing is written, so that threads may share the grid
    if (found.usable()) {
        xAxis_ = std::make_unique<orv::AxisIndex>(cells() + stride(), static_cast<std::size_t>(rows_) - 1, stride());
        yAxis_ = std::make_unique<orv::AxisIndex>(cells() + 1, static_cast<std::size_t>(cols_) - 1, 1);
    }
    state_ = found.usable() ? State::kUsable : State::kUnusable;
    return found;
}

inline double CLinearInterpolation2D::interpolated(double x, double y, std::size_t row,
                                                   std::size_t column) const noexcept {
    const double* axis = cells();
    const double* upper = axis + (row - 1) * stride();
    const double* lower = axis + row * stride();
    const double x1 = upper[0];
    const double x2 = lower[0];
    const double y1 = axis[column - 1];
    const double y2 = axis[column];
    const double xi = 2.0 * (x - x1) / (x2 - x1) - 1.0;
    const double eta = 2.0 * (y - y1) / (y2 - y1) - 1.0;
    return (1.0 - xi) * (1.0 - eta) / 4.0 * upper[column - 1] + (1.0 + xi) * (1.0 - eta) / 4.0 * lower[column - 1] +
           (1.0 - xi) * (1.0 + eta) / 4.0 * upper[column] + (1.0 + xi) * (1.0 + eta) / 4.0 * lower[column];
}

double CLinearInterpolation2D::ownedZ(double x, double y, bool extrapolate) const noexcept {
    const double insideX = orv::clamped(x, xAxis_->low(), xAxis_->high());
    const double insideY = orv::clamped(y, yAxis_->low(), yAxis_->high());
    const std::size_t row = xAxis_->segmentEnd(insideX) + 1;
    const std::size_t column = yAxis_->segmentEnd(insideY) + 1;
    return interpolated(extrapolate ? x : insideX, extrapolate ? y : insideY, row, column);
}

double CLinearInterpolation2D::wrappedZ(double x, double y, bool extrapolate) const noexcept {
    if (rows_ < 3 || cols_ < 3) return orv::kNoTableValue;
    const double* xs = wrapped_ + stride();
    const double* ys = wrapped_ + 1;
    const std::size_t xCount = static_cast<std::size_t>(rows_) - 1;
    const std::size_t yCount = static_cast<std::size_t>(cols_) - 1;
    const Ends xEnds = endsOf(xs, xCount, stride());
    const Ends yEnds = endsOf(ys, yCount, 1);
    const double insideX = orv::clamped(x, xEnds.low, xEnds.high);
    const double insideY = orv::clamped(y, yEnds.low, yEnds.high);
    const std::size_t row = checkAndFindEither(xs, xCount, stride(), insideX);
    const std::size_t column = checkAndFindEither(ys, yCount, 1, insideY);
    if (row == 0 || column == 0) return orv::kNoTableValue;
    return interpolated(extrapolate ? x : insideX, extrapolate ? y : insideY, row + 1, column + 1);
}

double CLinearInterpolation2D::GetZ(double x, double y, bool extrapolate) const {
    if (wrapped_ != nullptr) return wrappedZ(x, y, extrapolate);
    if (state_ != State::kUsable) [[unlikely]] {
        if (state_ == State::kUnusable || !prepare().usable()) return orv::kNoTableValue;
    }
    return ownedZ(x, y, extrapolate);
}

orv::TableValue CLinearInterpolation2D::lookUp(double x, double y, bool extrapolate) const {
    orv::TableValue result;
    result.check = prepare();
    if (!result.check.usable()) return result;
    const Ends xEnds = endsOf(cells() + stride(), static_cast<std::size_t>(rows_) - 1, stride());
    const Ends yEnds = endsOf(cells() + 1, static_cast<std::size_t>(cols_) - 1, 1);
    result.value = GetZ(x, y, extrapolate);
    result.x = orv::axisState(x, xEnds.low, xEnds.high, extrapolate);
    result.y = orv::axisState(y, yEnds.low, yEnds.high, extrapolate);
    return result;
}
