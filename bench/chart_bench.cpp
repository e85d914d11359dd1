// Redraws of charts and rolling texts on an 800 x 480 panel, in memcpys of its surface.
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/font.h"
#include "imagekit/image_builder.h"
#include "store/curve_samples.h"
#include "widgets/display/curve.h"
#include "widgets/display/textroll.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

#include <QtGlobal>

#include <cmath>
#include <vector>

namespace {

using namespace panel;
using yardstick::measure;

constexpr std::uint16_t Text = 0x0100;

imagekit::ImageBuilder plainProject() {
    imagekit::ImageBuilder image({.Width = 800, .Height = 480});
    image.addPage(imagekit::Solid{800, 480, QColor(14, 20, 31)});
    return image;
}

void start(const imagekit::ImageBuilder& image) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    TakeImage(image.build());
    SilentOutputs outputs;
    StartPanel(outputs);
}

void curves(benchmark::State& state) {
    imagekit::ImageBuilder image = plainProject();
    for (std::uint8_t channel = 0; channel < 12; ++channel)
        image.page(0).add(imagekit::Curve{.X1 = 100,
                                          .Y1 = 100,
                                          .X2 = 699,
                                          .Y2 = 379,
                                          .BaseOffset = 270,
                                          .Scale = 256,
                                          .Colour = 0xF800,
                                          .Channel = channel,
                                          .StepX = 4,
                                          .Thickness = 2});
    start(image);
    std::vector<std::uint16_t> samples(12 * CurveRingSize);
    for (std::size_t i = 0; i < samples.size(); ++i) // waves of a period of 40 samples, one behind the other
        samples[i] = static_cast<std::uint16_t>(120 + 100 * std::sin(static_cast<double>(i) * 0.013));
    AppendCurveSamples(0x0FFF, samples);
    measure(state, [] { RedrawCurveGroup(1); });
}
BENCHMARK(curves)->Iterations(1000)->UseManualTime();

void rollingStep(benchmark::State& state, bool opaque) {
    imagekit::ImageBuilder image = plainProject();
    const std::uint8_t font = image.addFont(imagekit::SyntheticFont({.Width = 14, .Height = 24, .Depth = 4}));
    image.page(0).add(imagekit::Textroll{.TextAddress = Text,
                                         .X1 = 50,
                                         .Y1 = 400,
                                         .X2 = 749,
                                         .Y2 = 439,
                                         .Font = font,
                                         .GlyphWidth = 14,
                                         .GlyphHeight = 24,
                                         .RollAlways = true,
                                         .Colour = 0xFFFF,
                                         .Speed = 0,
                                         .Opaque = opaque});
    image.setBytes(Text, imagekit::Bytes(85, 'e'));
    start(image);
    measure(state, [] { StepTextroll(Textrolls.rows().front()); });
}
BENCHMARK_CAPTURE(rollingStep, opaque, true)->Iterations(1000)->UseManualTime();
BENCHMARK_CAPTURE(rollingStep, overPage, false)->Iterations(1000)->UseManualTime();

} // namespace
