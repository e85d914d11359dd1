// A refresh of a page on which nothing changed: what the panel does five times a second, whatever it shows.
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/silent_outputs.h"
#include "imagekit/image_builder.h"
#include "imagekit/value_widgets.h"
#include "pages/refresh.h"
#include "store/variable_store.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

namespace {

using imagekit::Label;
using imagekit::Number;

/// 30 numbers and 30 labels with 16 characters each, half of each kind in the pointer form.
imagekit::ImageBuilder fullPage() {
    imagekit::ImageBuilder image;
    image.addFont(imagekit::SyntheticFont({.Width = 8, .Height = 16}));
    auto& page = image.addPage();
    for (std::uint16_t i = 0; i < 30; ++i) {
        const auto y = static_cast<std::uint16_t>(16 * i);
        Number number{.ValueAddress = static_cast<std::uint16_t>(0x0100 + 2 * i),
                      .Y = y,
                      .IntegerDigits = 6,
                      .Type = imagekit::DataType::S32};
        Label label{.TextAddress = static_cast<std::uint16_t>(0x0200 + 8 * i),
                    .X1 = 200,
                    .Y1 = y,
                    .X2 = 399,
                    .Y2 = static_cast<std::uint16_t>(y + 15),
                    .TextLength = 8};
        if (i % 2 == 1) {
            number.ParameterAddress = static_cast<std::uint16_t>(0x1000 + 64 * i);
            label.ParameterAddress = static_cast<std::uint16_t>(0x2000 + 64 * i);
            image.setBytes(number.ParameterAddress, Encode(number).Block);
            image.setBytes(label.ParameterAddress, Encode(label).Block);
        }
        image.setText(label.TextAddress, "sixteen letters.", 0);
        page.add(number);
        page.add(label);
    }
    return image;
}

void refreshUnchangedPage(benchmark::State& state) {
    panel::TakeImage(fullPage().build());
    panel::SilentOutputs outputs;
    panel::StartPanel(outputs);
    yardstick::measure(state, [] { panel::RefreshPageWidgets(0); });
}
BENCHMARK(refreshUnchangedPage)
    ->Name("refresh of 60 unchanged widgets")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

} // namespace
