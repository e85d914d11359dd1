// Redraws of round instruments on an 800 x 480 panel, in memcpys of its surface. The sweep beside them is
// what QPainter needs for the same sector of a ready picture.
#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/image_builder.h"
#include "imagekit/meter_widgets.h"
#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/variable_store.h"
#include "widgets/display/needle_meter.h"
#include "widgets/display/ring_gauge.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

#include <QPainter>

namespace {

using namespace panel;
using yardstick::measure;

constexpr std::uint16_t Value = 0x0100;
constexpr int Side = 300;

/// A ring from cool to warm, with soft edges.
QImage ring(bool smooth) {
    QImage picture(Side, Side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    QConicalGradient colours(Side / 2.0, Side / 2.0, 270);
    colours.setColorAt(0, QColor(255, 92, 74));
    colours.setColorAt(1, QColor(77, 163, 255));
    painter.setPen(QPen(colours, 40));
    painter.drawEllipse(QRectF(30, 30, Side - 60, Side - 60));
    return picture;
}

void start(const imagekit::ImageBuilder& image) {
    TakeImage(image.build());
    SilentOutputs outputs;
    StartPanel(outputs);
}

imagekit::ImageBuilder plainProject() {
    imagekit::ImageBuilder image({.Width = 800, .Height = 480});
    image.addPage(imagekit::Solid{800, 480, QColor(14, 20, 31)});
    return image;
}

/// The only record of the page on show.
Parameters onlyRecord() {
    StreamWalker walker(DisplayStream.bytes(), Framing::Display);
    return Parameters(walker.next()->bytes);
}

void ringGauge(benchmark::State& state, std::uint8_t pixelFormat) {
    imagekit::ImageBuilder image = plainProject();
    const std::uint16_t foreground = image.addPicture(imagekit::Pixels{ring(true), pixelFormat});
    image.page(0).add(imagekit::RingGauge{
        .ValueAddress = Value, .X = 250, .Y = 90, .Foreground = foreground, .Highest = 360});
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
    const QBrush brush(ring(true).convertToFormat(QImage::Format_ARGB32_Premultiplied));
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

void needleMeter(benchmark::State& state) {
    imagekit::ImageBuilder image = plainProject();
    const std::uint16_t dial =
        image.addPicture(imagekit::Pixels{ring(true).scaled(200, 200), imagekit::format::PngAlpha});
    image.page(0).add(imagekit::NeedleMeter{.ValueAddress = Value,
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
                                            .ColourB = 0xE000});
    start(image);
    std::uint16_t angle = 0;
    measure(state, [&] {
        StoreWord(Value, angle);
        DrawNeedleMeter(NeedleMeterTable.rows().front());
        angle = static_cast<std::uint16_t>((angle + 7) % 361);
    });
}
BENCHMARK(needleMeter)->Iterations(722)->UseManualTime();

} // namespace
