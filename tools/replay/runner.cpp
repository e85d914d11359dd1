#include "replay/runner.h"

#include "replay/command_error.h"
#include "replay/commands.h"
#include "replay/script_line.h"

#include <fstream>
#include <vector>

namespace replay {
namespace {

constexpr int LargestScript = 1'000'000; // lines

struct Step {
    int line;
    QString source;
    Action action;
};

/// Calls `carryOut` and turns what it throws into a diagnostic at the report's line.
template <class Work>
Outcome guarded(Bench& bench, Work carryOut) {
    try {
        carryOut();
    } catch (const CommandError& error) {
        bench.report.diagnose(error.message());
        return Outcome::Error;
    }
    return bench.report.failed() ? Outcome::Failed : Outcome::Passed;
}

/// Gives each line that holds a command to `use`, checked.
template <class Use>
void forEachStep(std::istream& input, Report& report, Use use) {
    for (int line = 1;; ++line) {
        report.setLine(line, {});
        const auto bytes = ReadScriptLine(input);
        if (!bytes) return;
        if (line > LargestScript) throw CommandError("the script has too many lines");
        const QString source = DecodeScriptLine(*bytes);
        report.setLine(line, source);
        if (Action action = PrepareLine(source)) use(Step{line, source, std::move(action)});
    }
}

} // namespace

Outcome RunLines(std::istream& input, Bench& bench) {
    return guarded(
        bench, [&] { forEachStep(input, bench.report, [&bench](const Step& step) { step.action(bench); }); });
}

Outcome RunFile(const QString& file, Bench& bench) {
    std::ifstream input(file.toStdString(), std::ios::binary);
    if (!input) throw CommandError("cannot read the script " + file);
    return guarded(bench, [&] {
        std::vector<Step> steps;
        forEachStep(input, bench.report, [&steps](Step step) { steps.push_back(std::move(step)); });
        for (const Step& step : steps) {
            bench.report.setLine(step.line, step.source);
            step.action(bench);
        }
    });
}

} // namespace replay
