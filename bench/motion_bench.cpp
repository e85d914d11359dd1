// Pages and lists under a finger on an 800 x 480 panel, in memcpys of its surface.
#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/image_builder.h"
#include "imagekit/touch_controls.h"
#include "pages/page_switch.h"
#include "pages/slide_page.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/sliding_list.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

#include <QLinearGradient>
#include <QPainter>

namespace {

using namespace panel;
using yardstick::measure;

QImage shaded(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    QLinearGradient shade(0, 0, width, height);
    shade.setColorAt(0, Qt::darkBlue);
    shade.setColorAt(1, Qt::darkCyan);
    QPainter(&picture).fillRect(picture.rect(), shade);
    return picture;
}

/// Three pages with 40 icons each; the first one slides between the others, or does not.
void start(bool slides) {
    imagekit::ImageBuilder image({.Width = 800, .Height = 480});
    const std::uint16_t icon = image.addPicture(imagekit::Pixels{shaded(60, 40), imagekit::format::aRGB8888});
    for (int page = 0; page < 3; ++page) {
        imagekit::Page& shown =
            image.addPage(imagekit::Pixels{shaded(800, 480), imagekit::format::PngOpaque});
        for (std::uint16_t i = 0; i < 40; ++i)
            shown.add(imagekit::ValueIcon{.ValueAddress = i,
                                          .X = static_cast<std::uint16_t>(i % 10 * 80),
                                          .Y = static_cast<std::uint16_t>(i / 10 * 100),
                                          .FirstImage = icon});
    }
    if (slides) image.page(0).add(imagekit::SlidePage{.NextPage = 1, .PreviousPage = 2, .BandBottom = 480});
    TakeImage(image.build());
    SilentOutputs outputs;
    StartPanel(outputs);
}

void slideStep(benchmark::State& state) {
    start(true);
    SilentOutputs outputs;
    PressPointer({400, 200});
    SlidePageTick(outputs);
    int x = 440;
    measure(state, [&] {
        MovePointer({x = x == 440 ? 444 : 440, 200});
        SlidePageTick(outputs);
    });
}
BENCHMARK(slideStep)->Iterations(1000)->UseManualTime();

void showSlidingPage(benchmark::State& state) {
    start(true);
    measure(state, [] { ShowPage(0); });
}
BENCHMARK(showSlidingPage)->Iterations(200)->UseManualTime();

void showThreePages(benchmark::State& state) {
    start(false);
    measure(state, [] {
        for (const std::uint16_t page : {1, 2, 0}) ShowPage(page);
    });
}
BENCHMARK(showThreePages)->Iterations(200)->UseManualTime();

void listStep(benchmark::State& state) {
    imagekit::ImageBuilder image({.Width = 800, .Height = 480});
    const std::uint16_t bar = image.addPicture(imagekit::Pixels{shaded(8, 80), imagekit::format::aRGB8888});
    image.addPage(imagekit::Solid{800, 480, Qt::darkGray})
        .add(imagekit::SlidingList{
            .Window = {0, 0, 779, 479}, .ListPage = 1, .BarAtRest = bar, .BarMoving = bar});
    image.addPage(imagekit::Pixels{shaded(780, 2000), imagekit::format::PngOpaque});
    TakeImage(image.build());
    SilentOutputs outputs;
    StartPanel(outputs);
    PressPointer({400, 400});
    SlideListDrag();
    MovePointer({400, 300});
    SlideListDrag();
    int y = 200;
    measure(state, [&] {
        MovePointer({400, y = y == 200 ? 204 : 200});
        SlideListDrag();
        SlideListRefresh();
    });
}
BENCHMARK(listStep)->Iterations(1000)->UseManualTime();

} // namespace
