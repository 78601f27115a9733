// Interpolation tables: any points and arguments, against the definition with its plain search; a curve, a grid that
// owns its cells and a grid over a buffer, looked at again after changes.
#include "orv/interpolation.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "tests/geometry/slow_table.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

bool same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool isEmpty() const { return size_ == 0; }
    std::uint8_t byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    // A small number, a step from the last one, or any bits.
    double number() {
        const std::uint8_t kind = byte();
        if (kind < 96) return last_ = static_cast<double>(kind) - 48.0;
        if (kind < 224) return last_ += (static_cast<double>(kind) - 95.0) / 16.0;
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i)
            bits = bits << 8U | byte();
        return last_ = std::bit_cast<double>(bits);
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    double last_ = 0.0;
};

void curve(Input& input) {
    CLinearInterpolation table;
    std::vector<double> xs;
    std::vector<double> ys;
    const std::size_t count = input.byte() % 80;
    for (std::size_t i = 0; i < count; ++i) {
        xs.push_back(input.number());
        ys.push_back(static_cast<double>(input.byte()));
        table.Add(xs.back(), ys.back());
    }
    while (!input.isEmpty()) {
        const std::uint8_t what = input.byte();
        if (what == 0 && !xs.empty()) {
            const std::size_t i = input.byte() % xs.size();
            xs[i] = input.number();
            table.SetAtXArray(static_cast<int>(i), xs[i]);
        }
        if (what == 1) {
            table.sort(0.0);
            for (std::size_t i = 0; i < xs.size(); ++i) {
                xs[i] = table.GetAtXArray(static_cast<int>(i));
                ys[i] = table.GetAtYArray(static_cast<int>(i));
            }
        }
        if (what == 2) {
            table.changeXandY();
            xs.swap(ys);
        }
        const double x = what % 3 == 0 && !xs.empty() ? xs[what % xs.size()] : input.number();
        for (const bool extrapolate : {false, true}) {
            check(same(table.GetY(x, extrapolate), slow::getY(xs, ys, x, extrapolate)));
        }
    }
}

void grid(Input& input) {
    const std::size_t rows = input.byte() % 20 + 2U;
    const std::size_t cols = input.byte() % 20 + 2U;
    std::vector<double> cells(rows * cols);
    slow::Grid wanted;
    for (std::size_t i = 1; i < rows; ++i)
        wanted.xs.push_back(cells[i * cols] = input.number());
    for (std::size_t j = 1; j < cols; ++j)
        wanted.ys.push_back(cells[j] = input.number());
    for (std::size_t i = 1; i < rows; ++i) {
        wanted.z.emplace_back();
        for (std::size_t j = 1; j < cols; ++j) {
            cells[i * cols + j] = static_cast<double>((i * 7 + j * 13) % 17);
            wanted.z.back().push_back(cells[i * cols + j]);
        }
    }
    const CLinearInterpolation2D view(static_cast<int>(rows), static_cast<int>(cols), cells.data());
    CLinearInterpolation2D own(view);
    while (!input.isEmpty()) {
        if (input.byte() == 0) {
            const std::size_t i = input.byte() % wanted.xs.size();
            cells[(i + 1) * cols] = wanted.xs[i] = input.number();
            own.SetAt(static_cast<int>(i + 1), 0, wanted.xs[i]);
        }
        const double x = input.number();
        const double y = input.number();
        for (const bool extrapolate : {false, true}) {
            const double z = slow::getZ(wanted, x, y, extrapolate);
            check(same(view.GetZ(x, y, extrapolate), z));
            check(same(own.GetZ(x, y, extrapolate), z));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    if (input.byte() % 2 == 0) {
        curve(input);
    } else {
        grid(input);
    }
    return 0;
}
