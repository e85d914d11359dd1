#include "demo/instruments.h"

#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/words.h"

#include "imagekit/bar_widgets.h"

namespace demo {
namespace {

namespace format = imagekit::format;

std::uint16_t addPicture(imagekit::ImageBuilder& image, const QImage& picture,
                         std::uint8_t pixelFormat = format::aRGB8888) {
    return image.addPicture(imagekit::Pixels{picture, pixelFormat});
}

imagekit::ImageBar barIn(const QRect& area, std::uint16_t word, std::uint16_t picture) {
    return {.ValueAddress = word, .BarImage = picture, .BackX = U16(area.x()), .BackY = U16(area.y())};
}

void addPowerBar(imagekit::ImageBuilder& image) {
    const QRect area = layout::home::PowerBar;
    image.page(HomePage).add(
        barIn(area, words::PowerLevel, addPicture(image, SliderFill(area.size(), colour::Eco, colour::Warm))),
        "Power");
}

void addWeekBars(imagekit::ImageBuilder& image) {
    const std::uint16_t picture =
        addPicture(image, DayBarPicture(layout::energy::DayBar(0).size()), format::PngAlpha);
    for (int day = 0; day < 7; ++day) {
        imagekit::ImageBar bar = barIn(layout::energy::DayBar(day), U16(words::WeekEnergy + day), picture);
        bar.Direction = imagekit::BarGrowth::Up;
        bar.Maximum = 300;
        image.page(EnergyPage).add(bar, "Energy of the day");
    }
}

void addSupportCode(imagekit::ImageBuilder& image) {
    constexpr int side = 100;
    const QRect field = layout::service::QrCode;
    image.page(ServicePage)
        .add(imagekit::QrCode{.TextAddress = words::SupportLink,
                              .TextWords = words::TextWords,
                              .X = U16(field.x() + (field.width() - side) / 2),
                              .Y = U16(field.y() + (field.height() - side) / 2),
                              .SizeUnits = side / 50},
             "Support link");
    image.setBytes(words::SupportLink, imagekit::EncodeText("https://example.com/help?unit=HP-204711",
                                                            imagekit::FontKind::Ascii));
}

/// A value that goes up and down between two bounds, as long as Motion holds one of its two directions. All
/// those of a page turn with the one that is the last to be added.
struct Swing {
    words::Word word;
    int lowest, highest, step;
};

void addSwings(imagekit::Page& page, std::uint16_t period, const std::vector<Swing>& swings) {
    for (const bool up : {true, false})
        for (const Swing& swing : swings) {
            const bool leads = &swing == &swings.back();
            const std::uint16_t here = up ? words::MovingUp : words::MovingDown;
            const std::uint16_t back = up ? words::MovingDown : words::MovingUp;
            page.add(imagekit::AutoStep{.TargetAddress = swing.word,
                                        .ControlAddress = words::Motion,
                                        .CycleValue = words::NeverMoving,
                                        .RunValue = here,
                                        .EndValue = leads ? back : here,
                                        .Lowest = swing.lowest,
                                        .Highest = swing.highest,
                                        .Step = U16(swing.step),
                                        .Period = period,
                                        .Up = up});
        }
}

void addMotion(imagekit::ImageBuilder& image) {
    addSwings(image.page(HomePage), 60, {{words::PowerLevel, 34, 66, 1}});
    addSwings(image.page(HeatingPage), 90, {{words::SupplyTemperature, 340, 356, 1}});
    addSwings(image.page(ServicePage), 40,
              {{words::FanSpeed, 590, 640, 5}, {words::CompressorSpeed, 38, 58, 1}});
}

} // namespace

void AddInstruments(imagekit::ImageBuilder& image) {
    addPowerBar(image);
    addWeekBars(image);
    addSupportCode(image);
    addMotion(image);
    image.setWord(words::Motion, words::MovingUp);
}

} // namespace demo
