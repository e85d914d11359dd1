// Redraws of instruments on an 800 x 480 panel, in memcpys of its surface. The pie beside the rings is what
// QPainter needs for the same sector of a ready picture, without composing it apart.
#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/bar_widgets.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/clock_widgets.h"
#include "imagekit/font.h"
#include "imagekit/image_builder.h"
#include "imagekit/meter_widgets.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/curve_samples.h"
#include "store/variable_store.h"
#include "widgets/display/curve.h"
#include "widgets/display/needle_meter.h"
#include "widgets/display/ring_gauge.h"
#include "widgets/display/textroll.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

#include <QPainter>
#include <QtGlobal>

#include <cmath>
#include <vector>

namespace {

using namespace panel;
using yardstick::measure;

constexpr std::uint16_t Value = 0x0100, Text = 0x0200;
constexpr int Side = 300;

/// A ring from cool to warm, with soft edges.
QImage ring() {
    QImage picture(Side, Side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QConicalGradient colours(Side / 2.0, Side / 2.0, 270);
    colours.setColorAt(0, QColor(255, 92, 74));
    colours.setColorAt(1, QColor(77, 163, 255));
    painter.setPen(QPen(colours, 40));
    painter.drawEllipse(QRectF(30, 30, Side - 60, Side - 60));
    return picture;
}

imagekit::ImageBuilder plainProject() {
    imagekit::ImageBuilder image({.Width = 800, .Height = 480});
    image.addPage(imagekit::Solid{800, 480, QColor(14, 20, 31)});
    return image;
}

/// Debug lines would be measured too.
void start(const imagekit::ImageBuilder& image) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    TakeImage(image.build());
    SilentOutputs outputs;
    StartPanel(outputs);
}

/// The only record of the page on show.
Parameters onlyRecord() {
    StreamWalker walker(DisplayStream.bytes(), Framing::Display);
    return Parameters(walker.next()->bytes);
}

imagekit::RingGauge ringOf(std::uint16_t foreground) {
    return {.ValueAddress = Value, .X = 250, .Y = 90, .Foreground = foreground, .Highest = 360};
}

void ringGauge(benchmark::State& state, std::uint8_t pixelFormat) {
    imagekit::ImageBuilder image = plainProject();
    image.page(0).add(ringOf(image.addPicture(imagekit::Pixels{ring(), pixelFormat})));
    start(image);
    const Parameters record = onlyRecord();
    std::uint16_t angle = 0;
    measure(state, [&] {
        StoreWord(Value, angle);
        DisplayRingGauge(record);
        angle = static_cast<std::uint16_t>((angle + 1) % 361);
    });
}
BENCHMARK_CAPTURE(ringGauge, png, imagekit::format::PngAlpha)->Iterations(722)->UseManualTime();
BENCHMARK_CAPTURE(ringGauge, bits32, imagekit::format::aRGB8888)->Iterations(722)->UseManualTime();
BENCHMARK_CAPTURE(ringGauge, bits16, imagekit::format::aRGB4444)->Iterations(722)->UseManualTime();

void ringByQPainter(benchmark::State& state) {
    start(plainProject());
    const QBrush brush(ring().convertToFormat(QImage::Format_ARGB32_Premultiplied));
    int angle = 0;
    measure(state, [&] {
        QPainter painter(&FrameSurface);
        painter.drawImage(250, 90, PageBackground, 250, 90, Side, Side);
        painter.translate(250, 90);
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        painter.drawPie(0, 0, Side, Side, 270 * 16, -angle * 16);
        angle = (angle + 1) % 361;
    });
}
BENCHMARK(ringByQPainter)->Iterations(722)->UseManualTime();

imagekit::NeedleMeter meterOf(std::uint16_t dial) {
    return {.ValueAddress = Value,
            .Dial = dial,
            .X = 300,
            .Y = 100,
            .Width = 200,
            .Height = 200,
            .CentreX = 400,
            .CentreY = 200,
            .Kind = imagekit::Needle::SmoothTriangles,
            .Tail = 16,
            .ColourA = 0xF800,
            .Length = 85,
            .ColourB = 0xE000};
}

std::uint16_t addDial(imagekit::ImageBuilder& image) {
    return image.addPicture(imagekit::Pixels{ring().scaled(200, 200), imagekit::format::PngAlpha});
}

void needleMeter(benchmark::State& state) {
    imagekit::ImageBuilder image = plainProject();
    image.page(0).add(meterOf(addDial(image)));
    start(image);
    std::uint16_t angle = 0;
    measure(state, [&] {
        StoreWord(Value, angle);
        DrawNeedleMeter(NeedleMeterTable.rows().front());
        angle = static_cast<std::uint16_t>((angle + 7) % 361);
    });
}
BENCHMARK(needleMeter)->Iterations(722)->UseManualTime();

imagekit::Curve curveOf(std::uint8_t channel) {
    return {.X1 = 100,
            .Y1 = 100,
            .X2 = 699,
            .Y2 = 379,
            .BaseOffset = 270,
            .Scale = 256,
            .Colour = 0xF800,
            .Channel = channel,
            .StepX = 4,
            .Thickness = 2};
}

/// Waves with a period of 40 samples, one behind the other.
void fillCurves() {
    std::vector<std::uint16_t> samples(12 * CurveRingSize);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::uint16_t>(120 + 100 * std::sin(static_cast<double>(i) * 0.013));
    AppendCurveSamples(0x0FFF, samples);
}

void curves(benchmark::State& state) {
    imagekit::ImageBuilder image = plainProject();
    for (std::uint8_t channel = 0; channel < 12; ++channel) image.page(0).add(curveOf(channel));
    start(image);
    fillCurves();
    measure(state, [] { RedrawCurveGroup(1); });
}
BENCHMARK(curves)->Iterations(1000)->UseManualTime();

imagekit::Textroll rollOf(imagekit::ImageBuilder& image, bool opaque) {
    image.setBytes(Text, imagekit::Bytes(85, 'e'));
    return {.TextAddress = Text,
            .X1 = 50,
            .Y1 = 400,
            .X2 = 749,
            .Y2 = 439,
            .Font = image.addFont(imagekit::SyntheticFont({.Width = 14, .Height = 24, .Depth = 4})),
            .GlyphWidth = 14,
            .GlyphHeight = 24,
            .RollAlways = true,
            .Colour = 0xFFFF,
            .Speed = 0,
            .Opaque = opaque};
}

void rollingStep(benchmark::State& state, bool opaque) {
    imagekit::ImageBuilder image = plainProject();
    image.page(0).add(rollOf(image, opaque));
    start(image);
    measure(state, [] { StepTextroll(Textrolls.rows().front()); });
}
BENCHMARK_CAPTURE(rollingStep, opaque, true)->Iterations(1000)->UseManualTime();
BENCHMARK_CAPTURE(rollingStep, overPage, false)->Iterations(1000)->UseManualTime();

/// A cycle of a page that holds one of each, with values and samples on the move.
void cycleOfAll(benchmark::State& state) {
    imagekit::ImageBuilder image = plainProject();
    const std::uint16_t dial = addDial(image);
    imagekit::Page& page = image.page(0);
    page.add(ringOf(image.addPicture(imagekit::Pixels{ring(), imagekit::format::PngAlpha})));
    page.add(meterOf(dial));
    page.add(imagekit::AnalogClock{
        .X = 10, .Y = 10, .Face = dial, .Hours = {50, 5, 7}, .Minutes = {80, 5, 5}, .Seconds = {85, 9, 2}});
    page.add(imagekit::PngClock{.X = 10, .Y = 240, .FirstImage = dial});
    page.add(imagekit::ImageBar{.ValueAddress = Value, .BarImage = dial, .Maximum = 360});
    page.add(imagekit::QrCode{.TextAddress = Text, .TextWords = 40, .X = 640, .Y = 20});
    page.add(rollOf(image, false));
    page.add(curveOf(0));
    page.add(
        imagekit::AutoStep{.TargetAddress = Value, .ControlAddress = 0x0110, .Highest = 360, .Period = 2});
    image.setWord(0x0110, 1);
    start(image);
    fillCurves();
    SilentOutputs outputs;
    int tickCount = 0;
    const std::vector<std::uint16_t> sample{100};
    measure(state, [&] {
        AppendCurveSamples(1, sample);
        for (int tick = 0; tick < 2; ++tick) CountTick(tickCount);
        EngineCycle(outputs);
    });
}
BENCHMARK(cycleOfAll)->Iterations(1000)->UseManualTime();

} // namespace
