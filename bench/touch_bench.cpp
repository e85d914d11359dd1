// What a finger costs: a step of a drag, and a pop-up that darkens its page.
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/image_builder.h"
#include "imagekit/touch_controls.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/slider.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

namespace {

QImage filled(int width, int height, const QColor& colour) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(colour);
    return picture;
}

/// A dozen sliders with thumbs of soft edges, each with a number beside it.
imagekit::ImageBuilder mixingDesk() {
    imagekit::ImageBuilder image;
    image.addFont(imagekit::SyntheticFont({.Width = 8, .Height = 16}));
    const auto fill = image.addPicture(imagekit::Pixels{filled(500, 10, Qt::blue)});
    const auto thumb = image.addPicture(
        imagekit::Pixels{filled(28, 28, QColor(255, 255, 255, 200)), imagekit::format::aRGB8888});
    auto& page = image.addPage(imagekit::Pixels{filled(800, 480, Qt::darkGray)});
    for (std::uint16_t i = 0; i < 12; ++i) {
        const auto y = static_cast<std::uint16_t>(10 + 38 * i), word = static_cast<std::uint16_t>(0x0100 + i);
        page.add(imagekit::Slider{.FillX = 40,
                                  .FillY = y,
                                  .FillImage = fill,
                                  .Address = word,
                                  .Where = {40, y, 540, static_cast<std::uint16_t>(y + 28)},
                                  .ThumbImage = thumb,
                                  .Highest = 1000});
        page.add(imagekit::Number{.ValueAddress = word, .X = 600, .Y = y, .IntegerDigits = 4});
    }
    return image;
}

void start(const imagekit::ImageBuilder& image) {
    panel::TakeImage(image.build());
    static panel::SilentOutputs outputs;
    panel::StartPanel(outputs);
}

void dragSlider(benchmark::State& state) {
    start(mixingDesk());
    panel::PressPointer({100, 20});
    panel::TouchSlider();
    int x = 100;
    yardstick::measure(state, panel::TouchSlider, 1, [&x] {
        x = x < 500 ? x + 1 : 100;
        panel::MovePointer({x, 20});
    });
    panel::ReleasePointer();
    panel::TouchSlider();
}
BENCHMARK(dragSlider)
    ->Name("step of a drag among 12 sliders")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void dimFrame(benchmark::State& state) {
    start(mixingDesk());
    yardstick::measure(state, panel::DimFrame);
}
BENCHMARK(dimFrame)->Name("dimming behind a pop-up")->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
