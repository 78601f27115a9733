#include "table_file.h"

#include <algorithm>

#include "commands.h"
#include "orv/numbers.h"
#include "orv/string_utilities.h"

namespace orvtool {

namespace {

struct Row {
    int line;
    std::vector<std::string> words;
};

std::string where(const std::string& name, int line) { return name + ":" + std::to_string(line) + ": "; }

// Semicolons separate cells; without any, white space does.
std::vector<std::string> wordsOf(std::string line) {
    line.resize(std::min(line.find('#'), line.size()));
    const bool semicolons = line.find(';') != std::string::npos;
    constexpr const char* kSpace = " \t\r\f\v";
    std::vector<std::string> words;
    for (std::size_t at = line.find_first_not_of(kSpace); at < line.size();) {
        const std::size_t end = std::min(line.find_first_of(semicolons ? ";" : kSpace, at), line.size());
        const std::size_t last = end == at ? std::string::npos : line.find_last_not_of(kSpace, end - 1);
        words.push_back(last == std::string::npos || last < at ? "" : line.substr(at, last - at + 1));
        at = line.find_first_not_of(kSpace, semicolons ? std::min(end + 1, line.size()) : end);
    }
    return words;
}

std::vector<Row> readRows(const std::string& name) {
    CString content;
    if (!orvStrUtil::readStringFromFileAuto(content, wide(name), false)) throw Failure{name + ": cannot be read"};
    const std::string raw = utf8(content);
    std::vector<Row> rows;
    int line = 1;
    for (std::size_t at = 0; at < raw.size(); ++line) {
        std::size_t end = std::min(raw.find_first_of("\r\n", at), raw.size());
        std::vector<std::string> words = wordsOf(raw.substr(at, end - at));
        if (!words.empty()) rows.push_back({line, std::move(words)});
        if (raw.compare(end, 2, "\r\n") == 0) ++end;
        at = end + 1;
    }
    if (rows.empty()) throw Failure{name + ": no table in it"};
    return rows;
}

double number(const std::string& name, const Row& row, std::size_t column) {
    double value = 0.0;
    if (readNumber(row.words[column], value)) return value;
    throw Failure{where(name, row.line) + "\"" + row.words[column] + "\" in column " + std::to_string(column + 1) +
                  " is no number"};
}

void requireColumns(const std::string& name, const Row& row, std::size_t count) {
    if (row.words.size() == count) return;
    throw Failure{where(name, row.line) + "columns: " + std::to_string(row.words.size()) + " instead of " +
                  std::to_string(count)};
}

void readCurve(TableFile& table, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        requireColumns(table.name, row, 2);
        const double x = number(table.name, row, 0);
        table.curve.Add(x, number(table.name, row, 1));
        table.lines.push_back(row.line);
    }
}

void readGrid(TableFile& table, std::vector<Row> rows) {
    const std::size_t columns = rows.size() > 1 ? rows[1].words.size() : rows[0].words.size();
    if (rows[0].words.size() + 1 == columns) rows[0].words.insert(rows[0].words.begin(), "");
    CLinearInterpolation2D grid(static_cast<int>(rows.size()), static_cast<int>(columns));
    for (std::size_t r = 0; r < rows.size(); ++r) {
        requireColumns(table.name, rows[r], columns);
        for (std::size_t c = r == 0 ? 1 : 0; c < columns; ++c) {
            grid.SetAt(static_cast<int>(r), static_cast<int>(c), number(table.name, rows[r], c));
        }
        table.lines.push_back(rows[r].line);
    }
    table.grid = grid;
    table.isGrid = true;
}

}  // namespace

bool readNumber(const std::string& word, double& value) {
    CString text = wide(word);
    text.Replace(L',', L'.');
    const orv::ParsedDouble parsed = orv::parseDouble({text.GetString(), static_cast<std::size_t>(text.GetLength())});
    value = parsed.value;
    return parsed.length > 0 && parsed.length == static_cast<std::size_t>(text.GetLength());
}

void TableFile::requireUsable() const {
    const orv::TableCheck found = check();
    if (found.usable()) return;
    if (found.fault == orv::TableFault::kTooFewPoints) {
        throw Failure{name + (isGrid ? ": a grid needs two values on each axis" : ": a curve needs two points")};
    }
    const bool onY = found.fault == orv::TableFault::kYOrder;
    const int i = found.index;
    const auto axis = [&](int at) {
        return onY ? grid.GetAt(0, at) : isGrid ? grid.GetAt(at, 0) : curve.GetAtXArray(at);
    };
    CString values;
    values.Format(L"%g after %g", axis(i), axis(i - 1));
    throw Failure{where(name, lines[onY ? 0 : static_cast<std::size_t>(i)]) + (onY ? "y axis: " : "x axis: ") +
                  utf8(values) + " breaks its strict order"};
}

TableFile readTable(const std::string& name) {
    std::vector<Row> rows = readRows(name);
    TableFile table;
    table.name = name;
    const bool isGrid = rows[0].words.size() > 2 || (rows.size() > 1 && rows[1].words.size() > 2);
    if (isGrid) {
        readGrid(table, std::move(rows));
    } else {
        readCurve(table, rows);
    }
    return table;
}

}  // namespace orvtool
