// The table of what the program costs as a whole: each line a figure, its aim, and the yardstick of the same
// run.
#pragma once

#include <QString>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace report {

/// A line. The figure is a multiple of the yardstick unless its unit says something else.
struct Line {
    std::string what;
    double figure = 0;
    double aim =
        std::numeric_limits<double>::quiet_NaN(); // the most that it may be, or the least; none: told only
    const char* unit = "";
    bool atLeast = false;

    bool holds() const { return !(atLeast ? figure < aim : figure > aim); }
};
using Lines = std::vector<Line>;

/// The demo project as the figures need it, found by measuring the engine.
struct Demo {
    QString image;
    int busiestPage = 0; // the one with the dearest cycle
    int calmestPage = 0;
};

/// Cycles, page switches, refreshes and replayed time; fills in the pages of `demo`.
Lines EngineCosts(Demo& demo);
/// Frames, start, processor time and memory of the window. Each is measured in processes of their own, which
/// this program starts: see RunChild().
Lines WindowCosts(const Demo& demo);

/// Runs as one of the processes that WindowCosts() starts; nothing when the arguments ask for none.
std::function<int(int, char**)> ChildOf(const std::string& name);

} // namespace report
