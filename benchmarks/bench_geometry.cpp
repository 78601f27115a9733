// Geometry, matrices and interpolation tables beside Eigen, GLM, CGAL, GSL, ALGLIB and the standard library.
//
// Named operation[/size[/order]]/who; the library is "orv". 1000 random inputs a pass; times are per operation.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <complex>
#include <cstring>
#include <random>
#include <vector>

#include "orv/geometry.h"
#include "orv/interpolation.h"
#include "orv/matrices.h"

#ifdef ORV_WITH_EIGEN
#include <Eigen/Dense>
#include <Eigen/Geometry>
#endif
#ifdef ORV_WITH_GLM
#define GLM_ENABLE_EXPERIMENTAL
#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtx/rotate_vector.hpp>
#endif
#ifdef ORV_WITH_CGAL
#include <CGAL/Simple_cartesian.h>
#include <CGAL/intersections.h>
#endif
#ifdef ORV_WITH_GSL
#include <gsl/gsl_interp2d.h>
#include <gsl/gsl_spline.h>
#include <gsl/gsl_spline2d.h>
#endif
#ifdef ORV_WITH_ALGLIB
#include <libalglib/interpolation.h>
#endif

namespace {

constexpr std::size_t kInputs = 1000;
constexpr std::size_t kNumbers = 16;  // of each input

std::vector<double> inputs() {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> number(-10, 10);
    std::vector<double> numbers(kInputs * kNumbers + kNumbers);
    for (double& n : numbers)
        n = number(random);
    return numbers;
}

// By reference: a copy would read results back that have just been written.
template <class T>
void keep(T&& value) {
    benchmark::DoNotOptimize(value);
}

void countEach(benchmark::State& state, std::size_t count) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(count));
}

// Runs `operation` on each input.
template <class Operation>
void run(benchmark::State& state, Operation operation) {
    const std::vector<double> numbers = inputs();
    for (auto _ : state) {
        for (std::size_t i = 0; i < kInputs; ++i)
            operation(&numbers[i * kNumbers]);
    }
    countEach(state, kInputs);
}

template <class Operation>
void add(const char* name, Operation operation) {
    benchmark::RegisterBenchmark(name, [operation](benchmark::State& state) { run(state, operation); });
}

orvBaseVector3d V(const double* a) { return {a[0], a[1], a[2]}; }
orvBasePoint3d P(const double* a) { return {a[0], a[1], a[2]}; }
// The numbers seen as a matrix in place, as the peers' maps see them.
const orvBaseMatrix3d& M3(const double* a) { return *reinterpret_cast<const orvBaseMatrix3d*>(a); }
const orvBaseMatrix4d& M4(const double* a) { return *reinterpret_cast<const orvBaseMatrix4d*>(a); }

void addLibrary() {
    add("cross+normalise/orv", [](const double* a) { keep(V(a).getCrossProduct(V(a + 3)).getNormal()); });
    add("rotate/orv", [](const double* a) { keep(orvBaseVector3d::getRotated(V(a), V(a + 3), a[6])); });
    add("line-plane/orv", [](const double* a) {
        orvBasePoint3d hit;
        keep(orvBasePlane3d(P(a), P(a + 3), P(a + 6)).getIntersection(orvBaseLine3d(P(a + 9), V(a + 12)), hit));
        keep(hit);
    });
    add("line-line/orv", [](const double* a) {
        const orvBaseLine3d first(P(a), V(a + 3));
        keep(first.intersectsWithLine(orvBaseLine3d(P(a) + V(a + 3) * 2 + V(a + 6), V(a + 6))));
    });
    add("line-box/orv", [](const double* a) {
        static const orvBaseExtents box(orvBasePoint3d(-5, -5, -5), orvBasePoint3d(5, 5, 5));
        orvBasePoint3d p1;
        orvBasePoint3d p2;
        keep(box.getIntersections(orvBaseLine3d(P(a), V(a + 3)), p1, p2));
        keep(p1);
        keep(p2);
    });
    add("determinant3/orv", [](const double* a) { keep(M3(a).getDeterminant()); });
    add("determinant4/orv", [](const double* a) { keep(M4(a).getDeterminant()); });
    add("inverse3/orv", [](const double* a) { keep(M3(a).getInverse()); });
    add("solve3/orv", [](const double* a) { keep(M3(a).solveLGS(V(a + 9))); });
    add("product4/orv", [b = M4(inputs().data() + 3)](const double* a) { keep(M4(a) * b); });
    add("transform/orv", [](const double* a) {
        static const orvBaseMatrix4d t(0.9, -0.3, 0, 1, 0.3, 0.9, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1);
        orvBaseVector3d v = V(a);
        t.graphicApplyTransformToVector(v);
        keep(v);
    });
    ComplexMatrix b;
    b.setAt(1, 1, 1, 2);
    b.setAt(1, 2, 3, 4);
    b.setAt(2, 1, 5, 6);
    b.setAt(2, 2, 7, 8);
    std::vector<ComplexMatrix> matrices(kInputs);
    const std::vector<double> numbers = inputs();
    for (std::size_t i = 0; i < kInputs; ++i) {
        const double* a = &numbers[i * kNumbers];
        matrices[i].setAt(1, 1, a[0], a[1]);
        matrices[i].setAt(1, 2, a[2], a[3]);
        matrices[i].setAt(2, 1, a[4], a[5]);
        matrices[i].setAt(2, 2, a[6], a[7]);
    }
    benchmark::RegisterBenchmark("complex2/orv", [b, matrices](benchmark::State& state) {
        for (auto _ : state) {
            for (const ComplexMatrix& m : matrices)
                keep(m * b);
        }
        countEach(state, kInputs);
    });
}

void addEigen() {
#ifdef ORV_WITH_EIGEN
    using E3 = Eigen::Map<const Eigen::Vector3d>;
    using EM3 = Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>;
    using Matrix4 = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
    using EM4 = Eigen::Map<const Matrix4>;
    add("cross+normalise/eigen", [](const double* a) { keep(E3(a).cross(E3(a + 3)).normalized().eval()); });
    add("rotate/eigen",
        [](const double* a) { keep((Eigen::AngleAxisd(a[6], E3(a + 3).normalized()) * E3(a)).eval()); });
    add("determinant3/eigen", [](const double* a) { keep(EM3(a).determinant()); });
    add("determinant4/eigen", [](const double* a) { keep(EM4(a).determinant()); });
    add("inverse3/eigen", [](const double* a) { keep(EM3(a).inverse().eval()); });
    add("solve3/eigen-inverse", [](const double* a) { keep((EM3(a).inverse() * E3(a + 9)).eval()); });
    add("solve3/eigen-LU", [](const double* a) { keep(EM3(a).partialPivLu().solve(E3(a + 9)).eval()); });
    const Matrix4 b = EM4(inputs().data() + 3);
    add("product4/eigen", [b](const double* a) { keep((EM4(a) * b).eval()); });
    Eigen::Transform<double, 3, Eigen::AffineCompact, Eigen::RowMajor> t;
    t = Eigen::Translation3d(1, 2, 3) * Eigen::AngleAxisd(0.3, Eigen::Vector3d::UnitZ());
    add("transform/eigen", [t](const double* a) { keep((t * E3(a)).eval()); });
    Eigen::Matrix2cd c;
    c << std::complex(1.0, 2.0), std::complex(3.0, 4.0), std::complex(5.0, 6.0), std::complex(7.0, 8.0);
    add("complex2/eigen", [c](const double* a) {
        const Eigen::Map<const Eigen::Matrix2cd> m(reinterpret_cast<const std::complex<double>*>(a));
        keep((m * c).eval());
    });
#endif
}

void addGlm() {
#ifdef ORV_WITH_GLM
    const auto vector = [](const double* a) { return glm::dvec3(a[0], a[1], a[2]); };
    const auto matrix3 = [](const double* a) {
        return glm::dmat3(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8]);
    };
    const auto matrix4 = [](const double* a) {
        glm::dmat4 m;
        std::memcpy(&m, a, sizeof m);
        return m;
    };
    add("cross+normalise/glm", [=](const double* a) { keep(glm::normalize(glm::cross(vector(a), vector(a + 3)))); });
    add("rotate/glm", [=](const double* a) { keep(glm::rotate(vector(a), a[6], glm::normalize(vector(a + 3)))); });
    add("determinant3/glm", [=](const double* a) { keep(glm::determinant(matrix3(a))); });
    add("determinant4/glm", [=](const double* a) { keep(glm::determinant(matrix4(a))); });
    add("inverse3/glm", [=](const double* a) { keep(glm::inverse(matrix3(a))); });
    add("product4/glm", [=, b = matrix4(inputs().data() + 3)](const double* a) { keep(matrix4(a) * b); });
    const glm::dmat4 t = glm::rotate(glm::translate(glm::dmat4(1.0), glm::dvec3(1, 2, 3)), 0.3, glm::dvec3(0, 0, 1));
    add("transform/glm", [=](const double* a) { keep(t * glm::dvec4(vector(a), 1.0)); });
#endif
}

void addCgal() {
#ifdef ORV_WITH_CGAL
    using K = CGAL::Simple_cartesian<double>;
    const auto point = [](const double* a) { return K::Point_3(a[0], a[1], a[2]); };
    const auto vector = [](const double* a) { return K::Vector_3(a[0], a[1], a[2]); };
    add("line-plane/cgal", [=](const double* a) {
        keep(CGAL::intersection(K::Plane_3(point(a), point(a + 3), point(a + 6)),
                                K::Line_3(point(a + 9), vector(a + 12))));
    });
    add("line-line/cgal", [=](const double* a) {
        const K::Point_3 origin(a[0] + 2 * a[3] + a[6], a[1] + 2 * a[4] + a[7], a[2] + 2 * a[5] + a[8]);
        keep(CGAL::intersection(K::Line_3(point(a), vector(a + 3)), K::Line_3(origin, vector(a + 6))));
    });
    add("line-box/cgal", [=](const double* a) {
        const K::Iso_cuboid_3 box(K::Point_3(-5, -5, -5), K::Point_3(5, 5, 5));
        keep(CGAL::intersection(K::Line_3(point(a), vector(a + 3)), box));
    });
#endif
}

// ---- Interpolation ----

constexpr std::size_t kQueries = 32768;

struct Table {
    std::vector<double> x, y, queries;
};

Table table(std::size_t points, bool sorted) {
    Table t;
    std::mt19937 random(8);
    double x = 0;
    for (std::size_t i = 0; i < points; ++i) {
        t.x.push_back(x);
        t.y.push_back(static_cast<double>(random() % 1000));
        x += 0.5 + static_cast<double>(random() % 100) / 100.0;
    }
    std::uniform_real_distribution<double> inside(0, t.x.back());
    for (std::size_t i = 0; i < kQueries; ++i)
        t.queries.push_back(inside(random));
    if (sorted) std::sort(t.queries.begin(), t.queries.end());
    return t;
}

// `prepare` makes the look-up for a table.
template <class Prepare>
void addTable(const std::string& who, Prepare prepare) {
    for (const std::size_t points : {8U, 64U, 1024U}) {
        for (const bool sorted : {false, true}) {
            const std::string name = "table/" + std::to_string(points) + (sorted ? "/sorted/" : "/random/") + who;
            benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                const Table t = table(points, sorted);
                auto lookUp = prepare(t);
                for (auto _ : state) {
                    for (const double q : t.queries)
                        keep(lookUp(q));
                }
                countEach(state, kQueries);
            });
        }
    }
}

CLinearInterpolation filled(const Table& t) {
    CLinearInterpolation linear;
    for (std::size_t i = 0; i < t.x.size(); ++i)
        linear.Add(t.x[i], t.y[i]);
    return linear;
}

void addTables() {
    addTable("orv", [](const Table& t) { return [linear = filled(t)](double q) { return linear.GetY(q, false); }; });
    addTable("lower_bound", [](const Table& t) {
        return [&t](double q) {
            std::size_t i = static_cast<std::size_t>(std::lower_bound(t.x.begin(), t.x.end(), q) - t.x.begin());
            if (i < 1) i = 1;
            const double u = (q - t.x[i - 1]) / (t.x[i] - t.x[i - 1]);
            return t.y[i] * u + (1 - u) * t.y[i - 1];
        };
    });
#ifdef ORV_WITH_GSL
    addTable("gsl", [](const Table& t) {
        gsl_spline* spline = gsl_spline_alloc(gsl_interp_linear, t.x.size());
        gsl_spline_init(spline, t.x.data(), t.y.data(), t.x.size());
        gsl_interp_accel* last = gsl_interp_accel_alloc();
        return [=](double q) { return gsl_spline_eval(spline, q, last); };
    });
#endif
#ifdef ORV_WITH_ALGLIB
    addTable("alglib", [](const Table& t) {
        alglib::real_1d_array x;
        alglib::real_1d_array y;
        x.setcontent(static_cast<alglib::ae_int_t>(t.x.size()), t.x.data());
        y.setcontent(static_cast<alglib::ae_int_t>(t.x.size()), t.y.data());
        alglib::spline1dinterpolant spline;
        alglib::spline1dbuildlinear(x, y, spline);
        return [spline](double q) { return alglib::spline1dcalc(spline, q); };
    });
#endif
    // All queries in one call.
    for (const std::size_t points : {8U, 64U, 1024U}) {
        const std::string name = "table/" + std::to_string(points) + "/random/orv-many";
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            const Table t = table(points, false);
            const CLinearInterpolation linear = filled(t);
            std::vector<double> values(t.queries.size());
            for (auto _ : state) {
                linear.lookUpMany(t.queries, values, false);
                benchmark::ClobberMemory();
            }
            countEach(state, kQueries);
        });
    }
}

struct Grid {
    std::size_t n;
    std::vector<double> x, y, z;  // z by columns, as the peers take it
    std::vector<std::pair<double, double>> queries;
};

Grid grid(std::size_t n) {
    Grid g{n, {}, {}, {}, {}};
    std::mt19937 random(9);
    for (std::size_t i = 0; i < n; ++i) {
        g.x.push_back(static_cast<double>(i) * 1.5);
        g.y.push_back(static_cast<double>(i) * 2.5);
    }
    for (std::size_t i = 0; i < n * n; ++i)
        g.z.push_back(static_cast<double>(random() % 1000));
    std::uniform_real_distribution<double> unit(0, 1);
    for (std::size_t i = 0; i < kQueries; ++i) {
        const double x = unit(random) * g.x.back();
        g.queries.emplace_back(x, unit(random) * g.y.back());
    }
    return g;
}

std::vector<double> cellsOf(const Grid& g) {
    std::vector<double> cells((g.n + 1) * (g.n + 1));
    for (std::size_t i = 0; i < g.n; ++i) {
        cells[(i + 1) * (g.n + 1)] = g.x[i];
        cells[i + 1] = g.y[i];
        for (std::size_t j = 0; j < g.n; ++j)
            cells[(i + 1) * (g.n + 1) + j + 1] = g.z[j * g.n + i];
    }
    return cells;
}

template <class Prepare>
void addGrid(const std::string& who, Prepare prepare) {
    for (const std::size_t n : {8U, 32U}) {
        benchmark::RegisterBenchmark(("grid/" + std::to_string(n) + "/" + who).c_str(), [=](benchmark::State& state) {
            const Grid g = grid(n);
            auto lookUp = prepare(g);
            for (auto _ : state) {
                for (const auto& [x, y] : g.queries)
                    keep(lookUp(x, y));
            }
            countEach(state, kQueries);
        });
    }
}

void addGrids() {
    addGrid("orv-owned", [](const Grid& g) {
        std::vector<double> cells = cellsOf(g);
        const int side = static_cast<int>(g.n) + 1;
        const CLinearInterpolation2D view(side, side, cells.data());
        return [own = CLinearInterpolation2D(view)](double x, double y) { return own.GetZ(x, y, false); };
    });
    addGrid("orv-wrapped", [](const Grid& g) {
        static std::vector<double> cells;
        cells = cellsOf(g);
        auto view = std::make_shared<CLinearInterpolation2D>(static_cast<int>(g.n) + 1, static_cast<int>(g.n) + 1,
                                                             cells.data());
        return [view](double x, double y) { return view->GetZ(x, y, false); };
    });
#ifdef ORV_WITH_GSL
    addGrid("gsl", [](const Grid& g) {
        gsl_spline2d* spline = gsl_spline2d_alloc(gsl_interp2d_bilinear, g.n, g.n);
        gsl_spline2d_init(spline, g.x.data(), g.y.data(), g.z.data(), g.n, g.n);
        gsl_interp_accel* lastX = gsl_interp_accel_alloc();
        gsl_interp_accel* lastY = gsl_interp_accel_alloc();
        return [=](double x, double y) { return gsl_spline2d_eval(spline, x, y, lastX, lastY); };
    });
#endif
#ifdef ORV_WITH_ALGLIB
    addGrid("alglib", [](const Grid& g) {
        const auto size = static_cast<alglib::ae_int_t>(g.n);
        alglib::real_1d_array x;
        alglib::real_1d_array y;
        alglib::real_1d_array z;
        x.setcontent(size, g.x.data());
        y.setcontent(size, g.y.data());
        z.setcontent(size * size, g.z.data());
        alglib::spline2dinterpolant spline;
        alglib::spline2dbuildbilinearv(x, size, y, size, z, 1, spline);
        return [spline](double qx, double qy) { return alglib::spline2dcalc(spline, qx, qy); };
    });
#endif
}

}  // namespace

int main(int argc, char** argv) {
    addLibrary();
    addEigen();
    addGlm();
    addCgal();
    addTables();
    addGrids();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
