#include <algorithm>
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
    if (found.usable()) axis_ = std::make_unique<orv::AxisIndex>(&points_[0].x, points_.size(), 2);
    state_ = found.usable() ? State::kUsable : State::kUnusable;
    return found;
}

inline double CLinearInterpolation::valueAt(const orv::AxisIndex& axis, double x, bool extrapolate) const noexcept {
    const double inside = orv::clamped(x, axis.low(), axis.high());
    const std::size_t end = axis.segmentEnd(inside);
    const Point& p1 = points_[end - 1];
    const Point& p2 = points_[end];
    const double t = ((extrapolate ? x : inside) - p1.x) / (p2.x - p1.x);
    return p2.y * t + (1.0 - t) * p1.y;
}

double CLinearInterpolation::GetY(double x, bool extrapolate) const {
    if (state_ != State::kUsable) [[unlikely]] {
        if (points_.size() == 1 && !extrapolate) return points_[0].y;
        if (state_ == State::kUnusable || !prepare().usable()) return orv::kNoTableValue;
    }
    return valueAt(*axis_, x, extrapolate);
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
    result.value = valueAt(*axis_, x, extrapolate);
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
    for (std::size_t i = 0; i < count; ++i)
        ys[i] = valueAt(axis, xs[i], extrapolate);
    return count;
}
