// What the window pays for a frame of 800 x 480.
#include "host/frame_presenter.h"

#include <QApplication>
#include <QLabel>

#include <benchmark/benchmark.h>
#include <cstring>
#include <ctime>
#include <vector>

namespace {

constexpr int Width = 800;
constexpr int Height = 480;

QImage testFrame() {
    QImage frame(Width, Height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) frame.setPixel(x, y, qRgb(x, y, x ^ y));
    return frame;
}

/// Processor time of the program, so that neither other programs nor helper threads distort the comparison.
double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

double memcpySeconds() {
    constexpr int runs = 200;
    const std::vector<char> from(4 * Width * Height, 1);
    std::vector<char> to(from.size(), 0);
    const double start = processorSeconds();
    for (int run = 0; run < runs; ++run) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    return (processorSeconds() - start) / runs;
}

/// The view as the window has it, without a screen.
struct View {
    View() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "bench";
        static char* argv[] = {name, nullptr};
        static QApplication application(argc, argv);
        static QLabel shared;
        label = &shared;
    }
    QLabel* label;
};

/// Shows a frame again and again; `changing` makes each one a new one, as the engine's painting does.
void showFrames(benchmark::State& state, std::uint8_t veil, float zoom, bool changing) {
    const View view;
    FramePresenter presenter(*view.label);
    const QImage frames[] = {testFrame(), testFrame()};
    const double unit = memcpySeconds();
    std::size_t shown = 0;
    const double start = processorSeconds();
    for (auto _ : state) presenter.show(frames[changing ? shown++ % 2 : 0], veil, zoom);
    const double perFrame = (processorSeconds() - start) / static_cast<double>(state.iterations());
    state.counters["memcpys"] = perFrame / unit;
}

BENCHMARK_CAPTURE(showFrames, Veiled, 0x40, 1.0F, true);
BENCHMARK_CAPTURE(showFrames, FullBrightness, 0, 1.0F, true);
BENCHMARK_CAPTURE(showFrames, VeiledAndZoomed, 0x40, 1.4F, true);
BENCHMARK_CAPTURE(showFrames, Unchanged, 0x40, 1.4F, false);

} // namespace
