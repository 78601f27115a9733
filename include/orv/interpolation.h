// Tabulated functions: CLinearInterpolation of one variable, CLinearInterpolation2D of two.
//
// Rules of the family:
// - Axes run strictly upwards or strictly downwards. Between neighbours a table is read along the straight line (in a
//   grid between the four corners of the cell). Outside it is read at its end, or along the continued end segment if
//   the caller wants to extrapolate.
// - A table that cannot be used answers orv::kNoTableValue, the largest finite double; lookUp and check say why.
// Nothing
//   throws but std::bad_alloc, by what makes or prepares a table. A NaN argument gives NaN once the table is found
//   usable; a NaN on an axis makes a table unusable.
// - Looking up prepares the table when it has changed since the last look-up (the axes are checked, a search index is
//   made; this may allocate). Call prepare() before several threads read one table; until the next change they may.
//   A grid over the caller's buffer is checked on every look-up, because the buffer may have changed.
// - Looking up in a prepared table takes the same time in small and large ones as long as the points are spread fairly
//   evenly, and grows with the logarithm of their number at worst. A view's axes are walked each time.
// - The inline look-up gives the same bits as the others in hosts that compile with -ffp-contract=off, as the package
//   tells them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "orv/export.h"
#include "orv/random.h"

namespace orv {

/// What an unusable table answers.
inline constexpr double kNoTableValue = 1.7976931348623157e308;

class AxisIndex;

/// Where on an axis an argument lies.
enum class AxisState {
    kInside,
    kClampedLow,        // below the smallest axis value and read there
    kClampedHigh,       // above the largest axis value and read there
    kExtrapolatedLow,   // below the smallest axis value, on the continued segment there
    kExtrapolatedHigh,  // above the largest axis value, on the continued segment there
    kNotANumber
};

enum class TableFault {
    kNone,
    kTooFewPoints,  // fewer than 2; in a grid fewer than 2 on an axis
    kXOrder,        // the x values do not go on strictly in the direction of the first two (or one is NaN)
    kYOrder         // the same for the y axis of a grid
};

/// Whether a table can be used, and if not, which value is the first that does not go on: the index of the point, or of
/// the grid's row (x) or column (y); -1 when there is none.
struct TableCheck {
    TableFault fault = TableFault::kNone;
    int index = -1;
    bool usable() const noexcept { return fault == TableFault::kNone; }
};

/// A value and how it came about. Without a usable table `value` is kNoTableValue and the states mean nothing.
struct TableValue {
    double value = kNoTableValue;
    TableCheck check;
    AxisState x = AxisState::kInside;
    AxisState y = AxisState::kInside;  // grids only
};

}  // namespace orv

/// A function given by points (x, y), in the order in which they were added.
class ORV_API CLinearInterpolation {
  public:
    CLinearInterpolation();
    CLinearInterpolation(const CLinearInterpolation& other);
    CLinearInterpolation(CLinearInterpolation&& other) noexcept;
    CLinearInterpolation& operator=(const CLinearInterpolation& other);
    CLinearInterpolation& operator=(CLinearInterpolation&& other) noexcept;
    ~CLinearInterpolation();

    /// Appends a point; no order is enforced.
    void Add(double x, double y);
    int getSize() const noexcept { return static_cast<int>(points_.size()); }
    bool isEmpty() const noexcept { return points_.empty(); }

    /// An index outside 0..getSize()-1 raises CInvalidArgException.
    double GetAtXArray(int i) const;
    double GetAtYArray(int i) const;
    /// At i >= getSize() these append (x, 0) or (0, y); a negative i raises CInvalidArgException.
    void SetAtXArray(int i, double x);
    void SetAtYArray(int i, double y);

    /// Of the first and the last point as they stand; 0 for an empty table.
    double firstX() const noexcept { return points_.empty() ? 0.0 : points_.front().x; }
    double firstY() const noexcept { return points_.empty() ? 0.0 : points_.front().y; }
    double lastX() const noexcept { return points_.empty() ? 0.0 : points_.back().x; }
    double lastY() const noexcept { return points_.empty() ? 0.0 : points_.back().y; }

    /// Makes the table that of the inverse function.
    void changeXandY() noexcept;
    /// Sorts by ascending x (equal ones keep their order, NaN goes last), then removes each point whose successor in
    /// that order is nearer than `tolerance`.
    ///   0.001: x 2, 1, 1.0005, 3 => 1.0005, 2, 3
    void sort(double tolerance);
    void reset() noexcept;

    /// The value at x.
    ///   (0, 0), (10, 100): (5, false) => 50     (20, false) => 100     (20, true) => 200     (-10, true) => -100
    // ODDITY(one-point-table): a table of one point is constant when it may not extrapolate and unusable when it may.
    // Pinned by LinearTable.OnePointIsAConstantOnlyWithoutExtrapolation.
    double GetY(double x, bool extrapolate) const {
        // Most callers go along a curve: look into the segment of an earlier look-up first, its later end included.
        const std::uint32_t end = lastEnd_.load(std::memory_order_relaxed);
        if (end != 0) {
            const Point& p1 = points_[end - 1];
            const Point& p2 = points_[end];
            // Both comparisons at once: one alone is a toss-up for scattered arguments.
            const bool within = p1.x < p2.x ? bool((p1.x < x) & (x <= p2.x)) : bool((p1.x > x) & (x >= p2.x));
            if (within) return onSegment(p1, p2, x);
        }
        return searchY(x, extrapolate);
    }

    /// Checks the axis and makes the search index now.
    orv::TableCheck prepare() const;
    orv::TableCheck check() const noexcept;
    /// The same value as GetY, and how it came about.
    orv::TableValue lookUp(double x, bool extrapolate) const;
    /// GetY for each of `xs` (as many as `ys` has room for); returns how many.
    std::size_t lookUpMany(std::span<const double> xs, std::span<double> ys, bool extrapolate) const;

  private:
    struct Point {
        double x;
        double y;
    };
    // What is known of the points. Every change makes it kUnknown; a look-up finds out.
    enum class State : std::uint8_t { kUnknown, kUsable, kUnusable };

    void changed() noexcept {
        state_ = State::kUnknown;
        lastEnd_.store(0, std::memory_order_relaxed);
    }
    static double onSegment(const Point& p1, const Point& p2, double x) noexcept {
        const double t = (x - p1.x) / (p2.x - p1.x);
        return p2.y * t + (1.0 - t) * p1.y;
    }
    void remember(std::size_t end, double x) const noexcept;
    double searchY(double x, bool extrapolate) const;
    Point& pointToSet(int i, const Point& appended);

    std::vector<Point> points_;
    mutable std::unique_ptr<orv::AxisIndex> axis_;
    mutable State state_ = State::kUnknown;
    // Where the segment of an earlier look-up ends; 0 for none, and always while the table is not known to be usable.
    mutable std::atomic<std::uint32_t> lastEnd_{0};
};

/// A function of x and y on a grid.
///
///           y1    y2    y3        Row 0 holds the y axis from column 1 on, column 0 the x axis from row 1 on.
///     x1    z11   z12   z13       Cell [i][j] is the value at (x of row i, y of column j); cell [0][0] is not used.
///     x2    z21   z22   z23
class ORV_API CLinearInterpolation2D {
  public:
    /// A grid of zeros that owns its cells; counts below 1 become 1. Throws std::bad_alloc when there is no room (or
    /// rows * cols cells are more than memory can address).
    CLinearInterpolation2D(int rows, int cols);
    CLinearInterpolation2D() : CLinearInterpolation2D(0, 0) {}
    /// A view of the caller's cells, row r at data + r * cols, which must outlive the grid. Null: a grid of zeros.
    CLinearInterpolation2D(int rows, int cols, double* data);
    /// Copies own their cells, also copies of views. Null: as (0, 0).
    CLinearInterpolation2D(const CLinearInterpolation2D& other);
    CLinearInterpolation2D(const CLinearInterpolation2D* other);
    CLinearInterpolation2D& operator=(const CLinearInterpolation2D& other);
    ~CLinearInterpolation2D();

    int getRows() const noexcept { return rows_; }
    int getCols() const noexcept { return cols_; }

    /// kNoTableValue outside the grid.
    double GetAt(int row, int col) const noexcept;
    /// Does nothing outside the grid.
    void SetAt(int row, int col, double value) noexcept;
    // ODDITY(grid-has-a-table): true from 2 x 2 on, while looking up needs 3 x 3. Pinned by
    // Grid.TwoByTwoHasATableButNoValue.
    bool bHasATable() const noexcept { return rows_ >= 2 && cols_ > 1; }

    /// The value at (x, y).
    double GetZ(double x, double y, bool extrapolate) const;

    /// Checks both axes now and makes the search indexes of an owned grid.
    orv::TableCheck prepare() const;
    orv::TableCheck check() const noexcept;
    /// The same value as GetZ, and how it came about.
    orv::TableValue lookUp(double x, double y, bool extrapolate) const;

  private:
    enum class State : std::uint8_t { kUnknown, kUsable, kUnusable };
    const double* cells() const noexcept { return wrapped_ != nullptr ? wrapped_ : owned_.data(); }
    std::size_t stride() const noexcept { return static_cast<std::size_t>(cols_); }
    bool isInside(int row, int col) const noexcept { return row >= 0 && row < rows_ && col >= 0 && col < cols_; }
    // For arguments as the formula takes them, and the row and column where the cell ends.
    double interpolated(double x, double y, std::size_t row, std::size_t column) const noexcept;
    double ownedZ(double x, double y, bool extrapolate) const noexcept;
    double wrappedZ(double x, double y, bool extrapolate) const noexcept;

    int rows_;
    int cols_;
    std::vector<double> owned_;
    double* wrapped_ = nullptr;
    mutable std::unique_ptr<orv::AxisIndex> xAxis_;
    mutable std::unique_ptr<orv::AxisIndex> yAxis_;
    mutable State state_ = State::kUnknown;
};
