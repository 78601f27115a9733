// Tables in text form: a curve of two columns, or a grid whose first row and column are its axes.
//
// Columns stand between white space or semicolons; numbers have a decimal comma or point; "#" begins a comment. The
// first line of a grid holds the y axis behind a corner cell, which may be anything or missing.
#pragma once

#include <string>
#include <vector>

#include "orv/interpolation.h"

namespace orvtool {

/// A number as a person writes it: "1,5" and "1.5". False for anything else, also for a part of the text.
bool readNumber(const std::string& word, double& value);

struct TableFile {
    std::string name;
    bool isGrid = false;
    CLinearInterpolation curve;
    CLinearInterpolation2D grid;
    std::vector<int> lines;  // of the curve's points, or of the grid's rows: the line in the file

    orv::TableCheck check() const { return isGrid ? grid.check() : curve.check(); }
    /// Whether it can be used; throws a Failure that names file and line where an axis is not strictly monotonic.
    void requireUsable() const;
};

/// Throws a Failure that names the line for what is not a table.
TableFile readTable(const std::string& name);

/// The curve, or for a grid one curve over x for each y, with its points, what lies outside clamped and extrapolated.
std::string drawTable(const TableFile& table);

}  // namespace orvtool
