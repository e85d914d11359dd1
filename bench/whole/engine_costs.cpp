#include "whole/report.h"

#include "graphics/image_blit.h"
#include "host/config_block.h"
#include "host/engine_loop.h"
#include "host/flash_image.h"
#include "host/image_file.h"
#include "host/silent_outputs.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "yardstick.h"

#include <algorithm>
#include <chrono>

namespace report {
namespace {

constexpr int WarmCycles = 30;
constexpr int TimedCycles = 400;
constexpr int TimedSwitches = 15;
constexpr int TimedRefreshes = 200;
constexpr int ReplayedSeconds = 60;
constexpr int CyclesPerSecond = 50;
constexpr double MostMedian = 8, Most99th = 60, MostFirstSwitch = 250, MostSwitch = 40, MostRefresh = 0.2,
                 LeastReplay = 60;

using yardstick::Job;

double percentile(std::vector<double> values, double part) {
    const auto at =
        values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
    std::ranges::nth_element(values, at);
    return *at;
}

/// Times of a job as multiples of the memcpys between its runs.
class Sampler {
public:
    void run(
        const Job& job, const Job& prepare = [] {}) {
        copies_.push_back(
            yardstick::secondsOf([this] { std::memcpy(to_.data(), from_.data(), to_.size()); }));
        prepare();
        jobs_.push_back(yardstick::secondsOf(job));
    }
    double at(double part) const { return percentile(jobs_, part) / percentile(copies_, 0.5); }

private:
    std::vector<char> from_ = std::vector<char>(yardstick::SurfaceBytes, 1);
    std::vector<char> to_ = std::vector<char>(yardstick::SurfaceBytes);
    std::vector<double> jobs_, copies_;
};

struct PageCost {
    double cycle, slowCycle, firstSwitch, nextSwitch, refresh;
};

class Panel {
public:
    explicit Panel(const QString& image) {
        panel::ReadImageFile(image);
        panel::StartPanel(outputs_);
    }
    void cycle() {
        panel::CountTick(tickCount_);
        panel::CountTick(tickCount_);
        panel::EngineCycle(outputs_);
    }

private:
    panel::SilentOutputs outputs_;
    int tickCount_ = 0;
};

PageCost measurePage(Panel& panel, std::uint16_t page) {
    const auto show = [page] { panel::ShowPage(page); };
    const auto leave = [page] { panel::ShowPage(page == 0 ? 1 : 0); };
    Sampler first, next, cycles, refreshes;
    for (int i = 0; i < TimedSwitches; ++i)
        first.run(show, [&] {
            leave();
            panel::DropDecodedPictures();
        });
    for (int i = 0; i < TimedSwitches; ++i) next.run(show, leave);
    show();
    for (int i = 0; i < WarmCycles; ++i) panel.cycle();
    for (int i = 0; i < TimedRefreshes; ++i) refreshes.run([page] { panel::RefreshPageWidgets(page); });
    for (int i = 0; i < TimedCycles; ++i) cycles.run([&] { panel.cycle(); });
    return {.cycle = cycles.at(0.5),
            .slowCycle = cycles.at(0.99),
            .firstSwitch = first.at(0.5),
            .nextSwitch = next.at(0.5),
            .refresh = refreshes.at(0.5)};
}

double replaySpeed(Panel& panel, int page) {
    panel::ShowPage(static_cast<std::uint16_t>(page));
    return ReplayedSeconds / yardstick::secondsOf([&] {
               for (int i = 0; i < ReplayedSeconds * CyclesPerSecond; ++i) panel.cycle();
           });
}

Lines cycleLines(const std::vector<PageCost>& pages) {
    Lines lines;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const std::string name = "cycle of page " + std::to_string(page);
        lines.push_back({.what = name + ", median", .figure = pages[page].cycle, .aim = MostMedian});
        lines.push_back(
            {.what = name + ", 99th percentile", .figure = pages[page].slowCycle, .aim = Most99th});
    }
    return lines;
}

double most(const std::vector<PageCost>& pages, double PageCost::*cost) {
    return (*std::ranges::max_element(pages, {}, cost)).*cost;
}

} // namespace

Lines EngineCosts(Demo& demo) {
    Panel panel(demo.image);
    std::vector<PageCost> pages;
    for (std::uint16_t page = 0; page < panel::Sections.PageCount; ++page)
        pages.push_back(measurePage(panel, page));
    const auto [calmest, busiest] = std::ranges::minmax_element(pages, {}, &PageCost::cycle);
    demo.calmestPage = static_cast<int>(calmest - pages.begin());
    demo.busiestPage = static_cast<int>(busiest - pages.begin());

    Lines lines = cycleLines(pages);
    lines.push_back({.what = "switch to the heaviest page, first time",
                     .figure = most(pages, &PageCost::firstSwitch),
                     .aim = MostFirstSwitch});
    lines.push_back({.what = "switch to the heaviest page, pictures decoded",
                     .figure = most(pages, &PageCost::nextSwitch),
                     .aim = MostSwitch});
    lines.push_back({.what = "refresh that finds nothing changed, dearest page",
                     .figure = most(pages, &PageCost::refresh),
                     .aim = MostRefresh});
    lines.push_back({.what = "replay of 60 s of the busiest page",
                     .figure = replaySpeed(panel, demo.busiestPage),
                     .aim = LeastReplay,
                     .unit = "x real time",
                     .atLeast = true});
    return lines;
}

} // namespace report
