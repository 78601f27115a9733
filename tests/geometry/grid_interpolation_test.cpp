#include <algorithm>
#include <limits>
#include <new>
#include <random>
#include <vector>

#include "near.h"
#include "orv/interpolation.h"
#include "random_bits.h"
#include "slow_table.h"

namespace {

using Grid = CLinearInterpolation2D;
using orv::AxisState;
using orv::TableFault;

constexpr double kNone = 1.7976931348623157e308;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

bool same(double a, double b) { return sameBits(a, b) || (std::isnan(a) && std::isnan(b)); }

// x axis 0, 1; y axis 0, 1; z = 0, 1 and 2, 3.
const std::vector<double> kSmall = {99, 0, 1, 0, 0, 1, 1, 2, 3};

Grid owned(const std::vector<double>& cells, int rows, int cols) {
    std::vector<double> copy(cells);
    const Grid view(rows, cols, copy.data());
    return Grid(view);
}

TEST(Grid, Values) {
    // clang-format off
    struct Row { const char* name; double x, y; bool extrapolate; double z; AxisState xState, yState; };
    const Row rows[] = {
        {"middle", 0.5, 0.5, false, 1.5, AxisState::kInside, AxisState::kInside},
        {"x above, clamped", 2, 0, false, 2, AxisState::kClampedHigh, AxisState::kInside},
        {"x above, extrapolated", 2, 0, true, 4, AxisState::kExtrapolatedHigh, AxisState::kInside},
        {"y below, clamped", 1, -3, false, 2, AxisState::kInside, AxisState::kClampedLow},
        {"y below, extrapolated", 1, -3, true, -1, AxisState::kInside, AxisState::kExtrapolatedLow},
        {"both outside", -1, 2, true, 0, AxisState::kExtrapolatedLow, AxisState::kExtrapolatedHigh},
        {"corner", 1, 1, false, 3, AxisState::kInside, AxisState::kInside},
        {"NaN", kNaN, 0, false, kNaN, AxisState::kNotANumber, AxisState::kInside},
        {"NaN in y", 0, kNaN, true, kNaN, AxisState::kInside, AxisState::kNotANumber},
    };
    // clang-format on
    std::vector<double> cells(kSmall);
    const Grid view(3, 3, cells.data());
    const Grid own = owned(kSmall, 3, 3);
    for (const Row& row : rows) {
        for (const Grid* grid : {&view, &own}) {
            EXPECT_TRUE(same(grid->GetZ(row.x, row.y, row.extrapolate), row.z)) << row.name;
            const orv::TableValue found = grid->lookUp(row.x, row.y, row.extrapolate);
            EXPECT_TRUE(same(found.value, row.z)) << row.name;
            EXPECT_TRUE(found.check.usable() && found.x == row.xState && found.y == row.yState) << row.name;
        }
    }
}

TEST(Grid, TwoByTwoHasATableButNoValue) {
    EXPECT_FALSE(Grid(1, 5).bHasATable());
    EXPECT_FALSE(Grid(5, 1).bHasATable());
    std::vector<double> cells(kSmall);
    for (const auto& [rows, cols] : {std::pair{2, 2}, {2, 4}, {4, 2}}) {
        const Grid grid(rows, cols, cells.data());
        EXPECT_TRUE(grid.bHasATable());
        EXPECT_EQ(grid.GetZ(0, 0, false), kNone);
        EXPECT_TRUE(grid.check().fault == TableFault::kTooFewPoints);
    }
}

TEST(Grid, CountsBelowOneAndAccessOutside) {
    constexpr int kMost = std::numeric_limits<int>::max();
    Grid grid(-5, 0);
    EXPECT_TRUE(grid.getRows() == 1 && grid.getCols() == 1 && grid.GetAt(0, 0) == 0);
    grid.SetAt(0, 0, 4);
    for (const auto& [row, col] : {std::pair{-1, 0}, {0, -1}, {1, 0}, {0, 1}, {kMost, 0}, {0, -kMost - 1}}) {
        grid.SetAt(row, col, 5);
        EXPECT_EQ(grid.GetAt(row, col), kNone);
    }
    EXPECT_EQ(grid.GetAt(0, 0), 4);
    EXPECT_EQ(Grid(3, 3, nullptr).GetAt(2, 2), 0);
    EXPECT_EQ(Grid(static_cast<const Grid*>(nullptr)).getCols(), 1);
    EXPECT_THROW(Grid(kMost, kMost), std::bad_alloc);
}

TEST(Grid, FaultyAxesAreNamed) {
    // clang-format off
    struct Row { const char* name; int row, col; double value; TableFault fault; int index; };
    // 4 x 4: x axis 1, 2, 3; y axis 30, 20, 10.
    const std::vector<double> good = {0, 30, 20, 10, 1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0};
    const Row rows[] = {
        {"equal x", 2, 0, 1, TableFault::kXOrder, 2},     {"x turns", 3, 0, 1.5, TableFault::kXOrder, 3},
        {"NaN in x", 1, 0, kNaN, TableFault::kXOrder, 2}, {"y turns", 0, 2, 40, TableFault::kYOrder, 3},
        {"equal y", 0, 3, 20, TableFault::kYOrder, 3},    {"NaN in y", 0, 3, kNaN, TableFault::kYOrder, 3},
        {"a cell is no axis", 3, 3, kNaN, TableFault::kNone, -1},
        {"nor is the corner", 0, 0, kNaN, TableFault::kNone, -1},
    };
    // clang-format on
    for (const Row& row : rows) {
        std::vector<double> cells(good);
        Grid view(4, 4, cells.data());
        Grid own(view);
        for (Grid* grid : {&view, &own}) {
            ASSERT_EQ(grid->GetZ(1, 30, false), 0) << row.name;
            grid->SetAt(row.row, row.col, row.value);
            const orv::TableValue found = grid->lookUp(1, 30, false);
            EXPECT_TRUE(found.check.fault == row.fault && found.check.index == row.index) << row.name;
            EXPECT_EQ(grid->GetZ(1, 30, false), row.fault == TableFault::kNone ? 0 : kNone) << row.name;
            grid->SetAt(row.row, row.col, good[static_cast<std::size_t>(row.row * 4 + row.col)]);
            EXPECT_EQ(grid->GetZ(1, 30, false), 0) << row.name;
        }
    }
}

TEST(Grid, ViewsFollowTheBufferAndCopiesDoNot) {
    std::vector<double> cells(kSmall);
    Grid view(3, 3, cells.data());
    Grid copy(view);
    Grid fromPointer(&view);
    Grid assigned(7, 7);
    assigned = view;
    cells[8] = 7;
    EXPECT_EQ(view.GetZ(1, 1, false), 7);
    cells[6] = 0;  // equal x values now
    EXPECT_EQ(view.GetZ(1, 1, false), kNone);
    view.SetAt(2, 0, 2);
    EXPECT_EQ(cells[6], 2);
    for (Grid* grid : {&copy, &fromPointer, &assigned}) {
        EXPECT_EQ(grid->GetZ(1, 1, false), 3);
        grid->SetAt(2, 2, 9);
        EXPECT_EQ(grid->GetZ(1, 1, false), 9);
    }
    EXPECT_EQ(cells[8], 7);
    Grid& itself = assigned;
    assigned = itself;
    EXPECT_EQ(assigned.GetZ(1, 1, false), 9);
    view = copy;  // a view that is assigned to owns its cells and leaves the buffer alone
    view.SetAt(2, 2, 1);
    EXPECT_EQ(cells[8], 7);
}

TEST(Grid, AgreesWithTheDefinitionToTheLastBit) {
    Random random(31);
    const auto unit = [&] { return static_cast<double>(random() % 1000 + 1) / 1000; };
    for (const auto& [rows, cols] : {std::pair{2U, 2U}, {3U, 8U}, {8U, 9U}, {9U, 3U}, {40U, 30U}}) {
        for (int directions = 0; directions < 4; ++directions) {
            slow::Grid wanted;
            double at = -5;
            for (unsigned i = 0; i < rows; ++i)
                wanted.xs.push_back(at += unit());
            for (unsigned j = 0; j < cols; ++j)
                wanted.ys.push_back(at += unit());
            if (directions & 1) std::reverse(wanted.xs.begin(), wanted.xs.end());
            if (directions & 2) std::reverse(wanted.ys.begin(), wanted.ys.end());
            std::vector<double> cells = {kNaN};
            cells.insert(cells.end(), wanted.ys.begin(), wanted.ys.end());
            for (unsigned i = 0; i < rows; ++i) {
                cells.push_back(wanted.xs[i]);
                wanted.z.emplace_back();
                for (unsigned j = 0; j < cols; ++j)
                    wanted.z[i].push_back(cells.emplace_back(static_cast<double>(random() % 2000) - 1000));
            }
            const Grid view(static_cast<int>(rows + 1), static_cast<int>(cols + 1), cells.data());
            const Grid own(view);
            for (int q = 0; q < 2000; ++q) {
                double x = wanted.xs[random() % rows];
                double y = wanted.ys[random() % cols];
                if (q % 3 != 0) x += unit() - 0.5;
                if (q % 5 != 0) y += unit() - 0.5;
                if (q % 97 == 0) x *= 100;
                if (q % 89 == 0) y *= -100;
                for (const bool extrapolate : {false, true}) {
                    const double z = slow::getZ(wanted, x, y, extrapolate);
                    ASSERT_TRUE(sameBits(own.GetZ(x, y, extrapolate), z) && sameBits(view.GetZ(x, y, extrapolate), z))
                        << rows << 'x' << cols << " at " << x << ", " << y;
                }
            }
        }
    }
}

}  // namespace
