// orvtool table: look up, check and draw interpolation tables.
#include "commands.h"
#include "orv/string_utilities.h"
#include "table_file.h"

namespace orvtool {

namespace {

struct TableWords {
    std::string file;
    std::vector<std::string> arguments;
    bool extrapolate = false;
    std::string picture;
};

const char* stateText(orv::AxisState state) {
    switch (state) {
        case orv::AxisState::kInside:
            return "inside";
        case orv::AxisState::kClampedLow:
            return "clamped low";
        case orv::AxisState::kClampedHigh:
            return "clamped high";
        case orv::AxisState::kExtrapolatedLow:
            return "extrapolated low";
        case orv::AxisState::kExtrapolatedHigh:
            return "extrapolated high";
        case orv::AxisState::kNotANumber:
            break;
    }
    return "not a number";
}

std::string general(double value) {
    CString text;
    text.Format(L"%.10g", value);
    return utf8(text);
}

double argument(const std::string& word) {
    double value = 0.0;
    if (!readNumber(word, value)) throw Failure{"\"" + word + "\" is no number"};
    return value;
}

void evaluate(const TableWords& words) {
    const TableFile table = readTable(words.file);
    // A curve of one point is a constant as long as nothing is extrapolated.
    const bool constant = !table.isGrid && table.curve.getSize() == 1 && !words.extrapolate;
    if (!constant) table.requireUsable();
    const std::size_t step = table.isGrid ? 2 : 1;
    if (words.arguments.size() % step != 0) throw Failure{words.file + ": a grid needs pairs of X and Y"};
    for (std::size_t i = 0; i < words.arguments.size(); i += step) {
        const double x = argument(words.arguments[i]);
        if (table.isGrid) {
            const double y = argument(words.arguments[i + 1]);
            const orv::TableValue z = table.grid.lookUp(x, y, words.extrapolate);
            print(general(x) + "\t" + general(y) + "\t" + general(z.value) + "\tx " + stateText(z.x) + ", y " +
                  stateText(z.y) + "\n");
        } else {
            const orv::TableValue y = table.curve.lookUp(x, words.extrapolate);
            print(general(x) + "\t" + general(y.value) + "\t" + stateText(y.x) + "\n");
        }
    }
}

void check(const TableWords& words) {
    const TableFile table = readTable(words.file);
    table.requireUsable();
    const auto run = [](double first, double last) {
        return (last > first ? " upwards from " : " downwards from ") + general(first) + " to " + general(last);
    };
    if (table.isGrid) {
        const CLinearInterpolation2D& grid = table.grid;
        const int lastRow = grid.getRows() - 1;
        const int lastColumn = grid.getCols() - 1;
        print(table.name + ": grid of " + std::to_string(lastRow) + " x " + std::to_string(lastColumn) + " values, x" +
              run(grid.GetAt(1, 0), grid.GetAt(lastRow, 0)) + ", y" + run(grid.GetAt(0, 1), grid.GetAt(0, lastColumn)) +
              "\n");
    } else {
        print(table.name + ": curve of " + std::to_string(table.curve.getSize()) + " points, x" +
              run(table.curve.firstX(), table.curve.lastX()) + "\n");
    }
}

void plot(const TableWords& words) {
    const TableFile table = readTable(words.file);
    table.requireUsable();
    const CString picture = wide(drawTable(table));
    constexpr unsigned kUtf8WithoutMark = 3333;
    if (!orvStrUtil::writeStringBufferToFile(picture, wide(words.picture), true, kUtf8WithoutMark, false)) {
        throw Failure{words.picture + ": cannot be written"};
    }
}

}  // namespace

void addTableCommands(CLI::App& app, Outcome&) {
    CLI::App* table = app.add_subcommand("table", "Interpolation tables in text form: curves and grids");
    table->require_subcommand(1);
    const auto words = std::make_shared<TableWords>();
    const auto addFile = [&](CLI::App* command) {
        command->add_option("FILE", words->file, "Two columns: a curve. More: a grid, its axes in first row and column")
            ->required();
    };

    CLI::App* eval = table->add_subcommand("eval", "Print the value at each X, or at each pair X Y of a grid");
    addFile(eval);
    eval->add_option("X", words->arguments, "Arguments, with decimal comma or point")->required();
    eval->add_flag("--extrapolate", words->extrapolate, "Continue the end segments instead of clamping");
    eval->callback([words] { evaluate(*words); });

    CLI::App* examine = table->add_subcommand("check", "Say whether the axes are strictly monotonic, or where not");
    addFile(examine);
    examine->callback([words] { check(*words); });

    CLI::App* draw = table->add_subcommand("plot", "Draw the table as SVG");
    addFile(draw);
    draw->add_option("-o,--output", words->picture, "The picture to write")->required();
    draw->callback([words] { plot(*words); });
}

}  // namespace orvtool
