// A table as a picture.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "commands.h"
#include "table_file.h"

namespace orvtool {

namespace {

constexpr double kWidth = 760.0;
constexpr double kHeight = 460.0;
constexpr double kLeft = 70.0;
constexpr double kRight = 150.0;
constexpr double kTop = 30.0;
constexpr double kBottom = 50.0;
constexpr double kBeyond = 0.15;  // of the axis, shown beyond each end
constexpr const char* kColours[] = {"#1f5fa8", "#c0392b", "#1e8449", "#8e44ad", "#b9770e", "#117a8b", "#5d4037"};

std::string formatted(const wchar_t* format, double value) {
    CString text;
    text.Format(format, value);
    return utf8(text);
}

std::string pixels(double value) { return formatted(L"%.1f", value); }
std::string label(double value) { return formatted(L"%g", value); }

// One curve: y over x, and the x values of its points.
struct Curve {
    std::string name;
    std::vector<double> xs;
    std::vector<double> clamped;       // at each of the picture's sample places
    std::vector<double> extrapolated;  // at each of them
    std::vector<double> ys;            // at the points
};

struct Range {
    double low;
    double high;
    void add(double value) {
        if (!std::isfinite(value)) return;
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

class Picture {
  public:
    Picture(const Range& x, const Range& y) : x_(x), y_(y) {
        text_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + pixels(kWidth) + "\" height=\"" +
                pixels(kHeight) + "\" font-family=\"sans-serif\" font-size=\"12\">\n" +
                "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    }

    double atX(double x) const { return kLeft + (x - x_.low) / (x_.high - x_.low) * (kWidth - kLeft - kRight); }
    double atY(double y) const {
        return kHeight - kBottom - (y - y_.low) / (y_.high - y_.low) * (kHeight - kTop - kBottom);
    }

    void shade(double from, double to) {
        text_ += "<rect x=\"" + pixels(atX(from)) + "\" y=\"" + pixels(kTop) + "\" width=\"" +
                 pixels(atX(to) - atX(from)) + "\" height=\"" + pixels(kHeight - kTop - kBottom) +
                 "\" fill=\"#f1f3f5\"/>\n";
    }
    void line(double x1, double y1, double x2, double y2, const std::string& style) {
        text_ += "<line x1=\"" + pixels(x1) + "\" y1=\"" + pixels(y1) + "\" x2=\"" + pixels(x2) + "\" y2=\"" +
                 pixels(y2) + "\" " + style + "/>\n";
    }
    void path(const std::vector<double>& xs, const std::vector<double>& ys, const std::string& style) {
        std::string points;
        for (std::size_t i = 0; i < xs.size(); ++i) {
            if (std::isfinite(ys[i])) points += pixels(atX(xs[i])) + "," + pixels(atY(ys[i])) + " ";
        }
        text_ += "<polyline fill=\"none\" points=\"" + points + "\" " + style + "/>\n";
    }
    void dot(double x, double y, const std::string& colour) {
        text_ +=
            "<circle cx=\"" + pixels(atX(x)) + "\" cy=\"" + pixels(atY(y)) + "\" r=\"3\" fill=\"" + colour + "\"/>\n";
    }
    void words(double x, double y, const std::string& words, const std::string& style) {
        text_ += "<text x=\"" + pixels(x) + "\" y=\"" + pixels(y) + "\" " + style + ">" + words + "</text>\n";
    }
    std::string finish() const { return text_ + "</svg>\n"; }

  private:
    Range x_;
    Range y_;
    std::string text_;
};

// A step of 1, 2 or 5 times a power of ten, for about six ticks.
double tickStep(const Range& range) {
    const double raw = (range.high - range.low) / 6.0;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    return raw / power < 1.5 ? power : raw / power < 3.5 ? 2.0 * power : raw / power < 7.5 ? 5.0 * power : 10.0 * power;
}

std::vector<double> ticks(const Range& range) {
    const double step = tickStep(range);
    const double first = std::ceil(range.low / step);
    std::vector<double> values;
    for (int i = 0; i < 20; ++i) {
        const double value = (first + i) * step;
        if (!(value <= range.high)) break;
        values.push_back(value == 0.0 ? 0.0 : value);
    }
    return values;
}

void drawAxes(Picture& picture, const Range& x, const Range& y) {
    const std::string grid = "stroke=\"#dde1e5\"";
    for (const double value : ticks(x)) {
        picture.line(picture.atX(value), kTop, picture.atX(value), kHeight - kBottom, grid);
        picture.words(picture.atX(value), kHeight - kBottom + 18, label(value), "text-anchor=\"middle\"");
    }
    for (const double value : ticks(y)) {
        picture.line(kLeft, picture.atY(value), kWidth - kRight, picture.atY(value), grid);
        picture.words(kLeft - 8, picture.atY(value) + 4, label(value), "text-anchor=\"end\"");
    }
    picture.line(kLeft, kHeight - kBottom, kWidth - kRight, kHeight - kBottom, "stroke=\"black\"");
    picture.line(kLeft, kTop, kLeft, kHeight - kBottom, "stroke=\"black\"");
    picture.words(kWidth - kRight, kHeight - 12, "x", "text-anchor=\"end\" font-style=\"italic\"");
}

void drawKey(Picture& picture, const std::vector<Curve>& curves, bool isGrid) {
    const double x = kWidth - kRight + 14;
    double y = kTop + 10;
    const auto entry = [&](const std::string& style, const std::string& words) {
        picture.line(x, y - 4, x + 24, y - 4, style);
        picture.words(x + 30, y, words, "");
        y += 18;
    };
    for (std::size_t i = 0; isGrid && i < curves.size(); ++i) {
        entry(std::string("stroke-width=\"2\" stroke=\"") + kColours[i % std::size(kColours)] + "\"", curves[i].name);
    }
    entry("stroke=\"#444\" stroke-dasharray=\"7 4\"", "clamped");
    entry("stroke=\"#444\" stroke-dasharray=\"2 3\"", "extrapolated");
}

// The curves of a table, sampled at `places`.
std::vector<Curve> curvesOf(const TableFile& table, const std::vector<double>& xs, const std::vector<double>& places) {
    std::vector<Curve> curves;
    const int count = table.isGrid ? table.grid.getCols() - 1 : 1;
    for (int c = 0; c < count; ++c) {
        const double y = table.isGrid ? table.grid.GetAt(0, c + 1) : 0.0;
        const auto value = [&](double x, bool extrapolate) {
            return table.isGrid ? table.grid.GetZ(x, y, extrapolate) : table.curve.GetY(x, extrapolate);
        };
        Curve curve{table.isGrid ? "y = " + label(y) : "", xs, {}, {}, {}};
        for (const double place : places) {
            curve.clamped.push_back(value(place, false));
            curve.extrapolated.push_back(value(place, true));
        }
        for (const double x : xs)
            curve.ys.push_back(value(x, false));
        curves.push_back(std::move(curve));
    }
    return curves;
}

}  // namespace

std::string drawTable(const TableFile& table) {
    std::vector<double> xs;
    const int count = table.isGrid ? table.grid.getRows() - 1 : table.curve.getSize();
    for (int i = 0; i < count; ++i)
        xs.push_back(table.isGrid ? table.grid.GetAt(i + 1, 0) : table.curve.GetAtXArray(i));
    std::sort(xs.begin(), xs.end());
    const double margin = kBeyond * (xs.back() - xs.front());
    const Range x{xs.front() - margin, xs.back() + margin};
    if (!std::isfinite(x.high - x.low) || !(x.high > x.low)) throw Failure{table.name + ": too wide to be drawn"};

    // Between its points a curve is straight, so the points and the picture's ends say all.
    std::vector<double> places(xs);
    places.insert(places.begin(), x.low);
    places.push_back(x.high);
    const std::vector<Curve> curves = curvesOf(table, xs, places);
    Range y{curves[0].ys[0], curves[0].ys[0]};
    for (const Curve& curve : curves) {
        for (const double value : curve.clamped)
            y.add(value);
        for (const double value : curve.extrapolated)
            y.add(value);
    }
    const double room = y.high > y.low ? 0.05 * (y.high - y.low) : 1.0;
    y = {y.low - room, y.high + room};
    if (!std::isfinite(y.high - y.low)) throw Failure{table.name + ": too high to be drawn"};

    Picture picture(x, y);
    picture.shade(x.low, xs.front());
    picture.shade(xs.back(), x.high);
    drawAxes(picture, x, y);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const Curve& curve = curves[i];
        const std::string colour = kColours[i % std::size(kColours)];
        const std::string stroke = "stroke=\"" + colour + "\"";
        picture.path(places, curve.clamped, stroke + " stroke-dasharray=\"7 4\"");
        picture.path(places, curve.extrapolated, stroke + " stroke-dasharray=\"2 3\"");
        picture.path(xs, curve.ys, stroke + " stroke-width=\"2\"");
        for (std::size_t k = 0; k < xs.size(); ++k) {
            if (std::isfinite(curve.ys[k])) picture.dot(xs[k], curve.ys[k], colour);
        }
    }
    drawKey(picture, curves, table.isGrid);
    return picture.finish();
}

}  // namespace orvtool
