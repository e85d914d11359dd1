// Measures the program as a whole on the demo project, and prints a table. Exit code 1 when an aim is missed.
#include "whole/report.h"

#include <QCoreApplication>

#include <cmath>
#include <cstdio>

namespace {

void print(const report::Line& line) {
    std::printf("%-50s %9.2f %-16s", line.what.c_str(), line.figure,
                *line.unit != '\0' ? line.unit : "memcpys");
    if (!std::isnan(line.aim))
        std::printf("%s %-6g %s", line.atLeast ? "at least" : "at most ", line.aim,
                    line.holds() ? "" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

bool printAll(const report::Lines& lines) {
    bool held = true;
    for (const report::Line& line : lines) {
        print(line);
        held = held && line.holds();
    }
    return held;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1)
        if (const auto child = report::ChildOf(argv[1])) return child(argc, argv);
    qInstallMessageHandler([](auto, auto&, auto&) {});
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DEMO.bin\n", argv[0]);
        return 2;
    }
    report::Demo demo{.image = QString::fromLocal8Bit(argv[1])};
    const bool engineHeld = printAll(report::EngineCosts(demo));
    const bool windowHeld = printAll(report::WindowCosts(demo));
    return engineHeld && windowHeld ? 0 : 1;
}
