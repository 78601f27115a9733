#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "near.h"
#include "orv/interpolation.h"
#include "random_bits.h"
#include "slow_table.h"

namespace {

using orv::AxisState;
using orv::TableFault;
using Points = std::vector<std::pair<double, double>>;

constexpr double kNone = 1.7976931348623157e308;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

CLinearInterpolation tableOf(const Points& points) {
    CLinearInterpolation table;
    for (const auto& [x, y] : points)
        table.Add(x, y);
    return table;
}

template <class Call>
bool raisesInvalidArgument(Call call) {
    try {
        call();
    } catch (CInvalidArgException* exception) {
        exception->Delete();
        return true;
    }
    return false;
}

// NaNs of any sign and payload are alike.
bool same(double a, double b) { return sameBits(a, b) || (std::isnan(a) && std::isnan(b)); }

struct Look {
    const char* name;
    Points points;
    double x;
    bool extrapolate;
    double y;
    TableFault fault;
    int index;
    AxisState state;
};

TEST(LinearTable, Values) {
    const Points up = {{0, 0}, {10, 100}};
    const Points down = {{10, 100}, {0, 0}};
    const Points bent = {{0, 0}, {1, 10}, {2, 0}};
    constexpr auto kOk = TableFault::kNone;
    // clang-format off
    const Look rows[] = {
        {"inside", up, 5, false, 50, kOk, -1, AxisState::kInside},
        {"clamped high", up, 20, false, 100, kOk, -1, AxisState::kClampedHigh},
        {"extrapolated high", up, 20, true, 200, kOk, -1, AxisState::kExtrapolatedHigh},
        {"clamped low", up, -10, false, 0, kOk, -1, AxisState::kClampedLow},
        {"descending, extrapolated low", down, -10, true, -100, kOk, -1, AxisState::kExtrapolatedLow},
        {"on an inner node", bent, 1, false, 10, kOk, -1, AxisState::kInside},
        {"a NaN in a usable table", up, kNaN, false, kNaN, kOk, -1, AxisState::kNotANumber},
        {"a NaN with extrapolation", up, kNaN, true, kNaN, kOk, -1, AxisState::kNotANumber},
        {"one point", {{3, 7}}, 99, false, 7, kOk, -1, AxisState::kClampedHigh},
        {"one point may not extrapolate", {{3, 7}}, 3, true, kNone, TableFault::kTooFewPoints, -1, AxisState::kInside},
        {"no point", {}, 3, false, kNone, TableFault::kTooFewPoints, -1, AxisState::kInside},
        {"equal x later", {{0, 0}, {1, 5}, {1, 6}}, 0, false, kNone, TableFault::kXOrder, 2, AxisState::kInside},
        {"a turn", {{0, 0}, {1, 5}, {2, 5}, {1.5, 6}}, 0, true, kNone, TableFault::kXOrder, 3, AxisState::kInside},
        {"a turn upwards", {{3, 0}, {1, 5}, {2, 5}}, 0, true, kNone, TableFault::kXOrder, 2, AxisState::kInside},
        {"a NaN on the axis", {{0, 0}, {kNaN, 5}, {2, 5}}, 0, true, kNone, TableFault::kXOrder, 1, AxisState::kInside},
        {"a NaN first", {{kNaN, 0}, {1, 5}, {2, 5}}, 0, true, kNone, TableFault::kXOrder, 1, AxisState::kInside},
    };
    // clang-format on
    for (const Look& row : rows) {
        SCOPED_TRACE(row.name);
        const CLinearInterpolation table = tableOf(row.points);
        EXPECT_TRUE(same(table.GetY(row.x, row.extrapolate), row.y));
        const orv::TableValue found = table.lookUp(row.x, row.extrapolate);
        EXPECT_TRUE(same(found.value, row.y));
        EXPECT_TRUE(found.check.fault == row.fault && found.check.index == row.index && found.x == row.state);
    }
}

TEST(LinearTable, OnePointIsAConstantOnlyWithoutExtrapolation) {
    const CLinearInterpolation table = tableOf({{3, 7}});
    for (const double x : {-kInfinity, 0.0, 3.0, kInfinity, kNaN}) {
        EXPECT_EQ(table.GetY(x, false), 7);
        EXPECT_EQ(table.GetY(x, true), kNone);
    }
}

TEST(LinearTable, EveryChangeIsSeenByTheNextLookUp) {
    CLinearInterpolation table = tableOf({{0, 0}, {10, 100}});
    ASSERT_EQ(table.GetY(5, false), 50);
    table.SetAtYArray(1, 200);
    EXPECT_EQ(table.GetY(5, false), 100);
    table.SetAtXArray(1, 5);
    EXPECT_EQ(table.GetY(5, false), 200);
    table.Add(4, 0);
    EXPECT_EQ(table.GetY(5, false), kNone);
    table.SetAtXArray(2, 6);
    EXPECT_EQ(table.GetY(5.5, false), 100);
    table.changeXandY();  // x is 0, 200, 0 now
    EXPECT_EQ(table.GetY(5, false), kNone);
    table.changeXandY();
    EXPECT_EQ(table.GetY(5.5, false), 100);
    table.reset();
    EXPECT_EQ(table.GetY(5.5, false), kNone);
    table.Add(1, 9);
    EXPECT_EQ(table.GetY(5.5, false), 9);
}

TEST(LinearTable, AccessByIndex) {
    CLinearInterpolation table;
    EXPECT_EQ(table.firstX() + table.firstY() + table.lastX() + table.lastY(), 0);
    table.SetAtXArray(7, 3);  // appends
    table.SetAtYArray(1, 4);  // appends
    table.SetAtYArray(0, 5);
    EXPECT_EQ(table.getSize(), 2);
    EXPECT_TRUE(table.firstX() == 3 && table.firstY() == 5 && table.lastX() == 0 && table.lastY() == 4);
    for (const int bad : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_TRUE(raisesInvalidArgument([&] { table.GetAtXArray(bad); })) << bad;
        EXPECT_TRUE(raisesInvalidArgument([&] { table.GetAtYArray(bad); })) << bad;
        if (bad > 0) continue;
        EXPECT_TRUE(raisesInvalidArgument([&] { table.SetAtXArray(bad, 0); })) << bad;
        EXPECT_TRUE(raisesInvalidArgument([&] { table.SetAtYArray(bad, 0); })) << bad;
    }
}

TEST(LinearTable, CopiesAreIndependent) {
    CLinearInterpolation table = tableOf({{0, 0}, {10, 100}});
    ASSERT_EQ(table.GetY(5, false), 50);
    CLinearInterpolation copy(table);
    CLinearInterpolation assigned = tableOf({{1, 1}});
    assigned = table;
    table.SetAtYArray(1, 0);
    EXPECT_EQ(assigned.GetY(5, false), 50);
    CLinearInterpolation& itself = copy;
    copy = itself;
    CLinearInterpolation moved(std::move(copy));
    assigned = std::move(moved);
    EXPECT_EQ(assigned.GetY(5, false), 50);
}

// clang-format off
struct Sorting { const char* name; std::vector<double> xs; double tolerance; std::vector<double> sorted; };
// clang-format on

TEST(LinearTable, SortRemovesWhatIsNearItsSuccessor) {
    // clang-format off
    const Sorting rows[] = {
        {"the later of two close ones stays", {2, 1, 1.0005, 3}, 0.001, {1.0005, 2, 3}},
        {"a chain keeps its last", {1, 1.5, 2, 2.5}, 0.6, {2.5}},
        {"the tolerance itself is far enough", {1, 1.5, 2}, 0.5, {1, 1.5, 2}},
        {"without tolerance nothing goes", {1, 1, 0}, 0, {0, 1, 1}},
        {"duplicates", {1, 1, 0}, 1e-9, {0, 1}},
        {"infinities", {kInfinity, 1, -kInfinity}, 1, {-kInfinity, 1, kInfinity}},
        {"no tolerance at all", {2, 1}, kNaN, {1, 2}},
        {"empty", {}, 1, {}},
    };
    // clang-format on
    for (const Sorting& row : rows) {
        CLinearInterpolation table;
        for (const double x : row.xs)
            table.Add(x, x * 10);
        table.sort(row.tolerance);
        ASSERT_EQ(table.getSize(), static_cast<int>(row.sorted.size())) << row.name;
        for (int i = 0; i < table.getSize(); ++i) {
            EXPECT_EQ(table.GetAtXArray(i), row.sorted[static_cast<std::size_t>(i)]) << row.name;
            EXPECT_EQ(table.GetAtYArray(i), table.GetAtXArray(i) * 10) << row.name;
        }
    }
}

TEST(LinearTable, SortedTablesReadOn) {
    CLinearInterpolation table = tableOf({{3, 30}, {2, 20}, {1, 10}});
    ASSERT_EQ(table.GetY(2.5, false), 25);  // checked while descending
    table.sort(0.001);
    EXPECT_EQ(table.GetY(9, true), 90);
    table.sort(100);  // one point left
    EXPECT_EQ(table.GetY(9, true), kNone);
}

TEST(LinearTable, SortSurvivesManyNaNs) {
    Random random(4);
    for (int size = 1; size < 200; size += 7) {
        CLinearInterpolation table;
        int numbers = 0;
        for (int i = 0; i < size; ++i) {
            table.Add(random() % 2 == 0 ? static_cast<double>(random()) : kNaN, i);
            numbers += std::isnan(table.lastX()) ? 0 : 1;
        }
        table.sort(0);
        ASSERT_EQ(table.getSize(), size);
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(std::isnan(table.GetAtXArray(i)), i >= numbers);
            ASSERT_FALSE(i > 0 && table.GetAtXArray(i - 1) > table.GetAtXArray(i));
        }
    }
}

// Axes of every kind for the search: even, clustered, with huge and tiny steps, with infinite ends.
std::vector<double> axis(const std::string& kind, std::size_t count, Random& random) {
    std::vector<double> xs;
    double x = kind == "even" ? -3.0 : -1e3;
    for (std::size_t i = 0; i < count; ++i) {
        xs.push_back(x);
        const double unit = static_cast<double>(random() % 1000 + 1) / 1000;
        if (kind == "even") x += 0.25;
        if (kind == "uneven") x += unit;
        if (kind == "clustered") x = i % 16 == 15 ? x + 1e6 * unit : std::nextafter(x, kInfinity);
        if (kind == "exponential") x = i == 0 ? 1e-300 : x * (2 + unit);
    }
    if (kind == "infinite" || kind == "widest") {
        for (std::size_t i = 0; i < count; ++i)
            xs[i] = static_cast<double>(i);
        xs.back() = kind == "widest" ? kNone : kInfinity;
        xs.front() = -xs.back();
    }
    return xs;
}

TEST(LinearTable, SearchFindsTheStatedSegmentOnEveryAxis) {
    Random random(21);
    for (const char* kind : {"even", "uneven", "clustered", "exponential", "infinite", "widest"}) {
        for (const std::size_t count : {2U, 3U, 7U, 8U, 9U, 10U, 17U, 64U, 100U, 333U}) {
            for (const bool descending : {false, true}) {
                std::vector<double> xs = axis(kind, count, random);
                if (descending) std::reverse(xs.begin(), xs.end());
                std::vector<double> ys;
                CLinearInterpolation table;
                for (const double x : xs) {
                    ys.push_back(static_cast<double>(random() % 1000) - 500);
                    table.Add(x, ys.back());
                }
                std::vector<double> queries = {0.0, -0.0, kInfinity, -kInfinity, kNone, -kNone, kNaN};
                for (std::size_t i = 0; i < count; ++i) {
                    for (const double to : {-kInfinity, kInfinity})
                        queries.push_back(std::nextafter(xs[i], to));
                    queries.push_back(xs[i]);
                    queries.push_back(i == 0 ? xs[0] - 1 : xs[i - 1] / 2 + xs[i] / 2);
                }
                for (const bool extrapolate : {false, true}) {
                    std::vector<double> many(queries.size());
                    ASSERT_EQ(table.lookUpMany(queries, many, extrapolate), queries.size());
                    for (std::size_t q = 0; q < queries.size(); ++q) {
                        const double wanted = slow::getY(xs, ys, queries[q], extrapolate);
                        ASSERT_TRUE(same(table.GetY(queries[q], extrapolate), wanted))
                            << kind << ' ' << count << ' ' << descending << " at " << queries[q];
                        ASSERT_TRUE(same(many[q], wanted)) << kind << ' ' << count << ' ' << descending;
                    }
                }
            }
        }
    }
}

TEST(LinearTable, ManyLookUpsStopAtTheShorterSpanAndMarkUnusableTables) {
    const CLinearInterpolation usable = tableOf({{0, 0}, {10, 100}});
    const CLinearInterpolation faulty = tableOf({{0, 0}, {0, 100}});
    const CLinearInterpolation single = tableOf({{3, 7}});
    const std::vector<double> xs = {1, 2, 3};
    std::vector<double> ys(5, -1);
    EXPECT_EQ(usable.lookUpMany(xs, ys, false), 3U);
    EXPECT_EQ(ys, (std::vector<double>{10, 20, 30, -1, -1}));
    EXPECT_EQ(faulty.lookUpMany(xs, std::span(ys).first(2), false), 2U);
    EXPECT_EQ(ys, (std::vector<double>{kNone, kNone, 30, -1, -1}));
    EXPECT_EQ(single.lookUpMany(xs, ys, false), 3U);
    EXPECT_EQ(ys[2], 7);
}

}  // namespace
