#include <algorithm>
#include <bit>
#include <cmath>

#include "geometry/axis_index.h"
#include "geometry/axis_state.h"
#include "orv/framework/exceptions.h"
#include "orv/interpolation.h"

CLinearInterpolation::CLinearInterpolation() = default;
CLinearInterpolation::CLinearInterpolation(const CLinearInterpolation& other) : points_(other.points_) {}
CLinearInterpolation::CLinearInterpolation(CLinearInterpolation&& other) noexcept : points_(std::move(other.points_)) {
    other.reset();
}
CLinearInterpolation::~CLinearInterpolation() = default;

CLinearInterpolation& CLinearInterpolation::operator=(const CLinearInterpolation& other) {
    if (this != &other) {
        changed();
        points_ = other.points_;
    }
    return *this;
}

CLinearInterpolation& CLinearInterpolation::operator=(CLinearInterpolation&& other) noexcept {
    if (this != &other) {
        changed();
        points_ = std::move(other.points_);
        other.reset();
    }
    return *this;
}

void CLinearInterpolation::Add(double x, double y) {
    changed();
    points_.push_back({x, y});
}

double CLinearInterpolation::GetAtXArray(int i) const {
    if (i < 0 || i >= getSize()) orv::throwInvalidArgument();
    return points_[static_cast<std::size_t>(i)].x;
}

double CLinearInterpolation::GetAtYArray(int i) const {
    if (i < 0 || i >= getSize()) orv::throwInvalidArgument();
    return points_[static_cast<std::size_t>(i)].y;
}

CLinearInterpolation::Point& CLinearInterpolation::pointToSet(int i, const Point& appended) {
    if (i < 0) orv::throwInvalidArgument();
    changed();
    if (i < getSize()) return points_[static_cast<std::size_t>(i)];
    return points_.emplace_back(appended);
}

void CLinearInterpolation::SetAtXArray(int i, double x) { pointToSet(i, {x, 0.0}).x = x; }

void CLinearInterpolation::SetAtYArray(int i, double y) { pointToSet(i, {0.0, y}).y = y; }

void CLinearInterpolation::changeXandY() noexcept {
    changed();
    for (Point& point : points_)
        std::swap(point.x, point.y);
}

void CLinearInterpolation::sort(double tolerance) {
    // Whether the table counts as checked cannot be seen to change: a usable one stays usable when it is sorted as long
    // as two points are left, and the next look-up finds the same.
    changed();
    std::stable_sort(points_.begin(), points_.end(),
                     [](const Point& a, const Point& b) { return a.x < b.x || (std::isnan(b.x) && !std::isnan(a.x)); });
    std::size_t kept = 0;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        const bool nearNext = i + 1 < points_.size() && std::fabs(points_[i].x - points_[i + 1].x) < tolerance;
        if (!nearNext) points_[kept++] = points_[i];
    }
    points_.resize(kept);
}

void CLinearInterpolation::reset() noexcept {
    changed();
    points_.clear();
    points_.shrink_to_fit();
    axis_.reset();
}

orv::TableCheck CLinearInterpolation::check() const noexcept {
    if (points_.size() < 2) return {orv::TableFault::kTooFewPoints, -1};
    const std::size_t offender = orv::firstOffender(&points_[0].x, points_.size(), 2);
    if (offender != 0) return {orv::TableFault::kXOrder, static_cast<int>(offender)};
    return {};
}

orv::TableCheck CLinearInterpolation::prepare() const {
    if (state_ == State::kUsable) return {};
    const orv::TableCheck found = check();
    if (state_ == State::kUnusable) return found;  // known: nothing is written, so that threads may share the table
    if (found.usable()) axis_ = std::make_unique<orv::AxisIndex>(&points_[0].x, points_.size(), 2);
    state_ = found.usable() ? State::kUsable : State::kUnusable;
    return found;
}

// Follows to the next segment after a few look-ups there, but jumps elsewhere only now and then (as the bits of the
// argument fall): look-ups here and there must not wait for each other's notes, nor threads for the cache line.
inline void CLinearInterpolation::remember(std::size_t end, double x) const noexcept {
    const std::uint32_t now = static_cast<std::uint32_t>(end);
    const std::uint64_t seldom = now - lastEnd_.load(std::memory_order_relaxed) == 1 ? 3 : 63;
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(x);
    if (((bits ^ (bits >> 40U)) & seldom) == 0) [[unlikely]]
        lastEnd_.store(now, std::memory_order_relaxed);
}

double CLinearInterpolation::searchY(double x, bool extrapolate) const {
    if (state_ != State::kUsable) [[unlikely]] {
        if (points_.size() == 1 && !extrapolate) return points_[0].y;
        if (state_ == State::kUnusable || !prepare().usable()) return orv::kNoTableValue;
    }
    const double inside = orv::clamped(x, axis_->low(), axis_->high());
    const std::size_t end = axis_->segmentEnd(inside);
    remember(end, x);
    return onSegment(points_[end - 1], points_[end], extrapolate ? x : inside);
}

orv::TableValue CLinearInterpolation::lookUp(double x, bool extrapolate) const {
    orv::TableValue result;
    if (points_.size() == 1 && !extrapolate) {
        result.value = points_[0].y;
        result.x = orv::axisState(x, points_[0].x, points_[0].x, false);
        return result;
    }
    result.check = prepare();
    if (!result.check.usable()) return result;
    result.value = searchY(x, extrapolate);
    result.x = orv::axisState(x, axis_->low(), axis_->high(), extrapolate);
    return result;
}

std::size_t CLinearInterpolation::lookUpMany(std::span<const double> xs, std::span<double> ys, bool extrapolate) const {
    const std::size_t count = std::min(xs.size(), ys.size());
    if (!prepare().usable()) {
        for (std::size_t i = 0; i < count; ++i)
            ys[i] = GetY(xs[i], extrapolate);
        return count;
    }
    const orv::AxisIndex& axis = *axis_;
    for (std::size_t i = 0; i < count; ++i) {
        const double inside = orv::clamped(xs[i], axis.low(), axis.high());
        const std::size_t end = axis.segmentEnd(inside);
        ys[i] = onSegment(points_[end - 1], points_[end], extrapolate ? xs[i] : inside);
    }
    return count;
}
