// A fixture that boots a panel from an image and drives it in virtual time.
#pragma once

#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/panel_outputs.h"
#include "host/serial_recorder.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/image_builder.h"
#include "imagekit/value_widgets.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/system_words.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/touch/pointer.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace panel {

// Of frames to the host.
using Payload = std::vector<std::uint8_t>;
using Payloads = std::vector<Payload>;

/// Keeps what the engine shows and asks for.
struct RecordedOutputs : PanelOutputs {
    QImage frame;
    int frames = 0;
    std::vector<std::string> media; // requests in order

    void showFrame(const QImage& shown) override {
        frame = shown;
        ++frames;
    }
    void playSound() override { media.emplace_back("sound"); }
    void playVideo() override { media.emplace_back("video"); }
    void playCamera() override { media.emplace_back("camera"); }
    void setPlayerVolume(int volume) override { media.emplace_back("volume " + std::to_string(volume)); }
    void stopMusic() override { media.emplace_back("stop music"); }
    void closeVideo() override { media.emplace_back("close video"); }
    void closeCamera() override { media.emplace_back("close camera"); }
};

/// Puts the bytes in place of the image, as a load does. No engine may run.
inline void LoadFlash(const QByteArray& bytes) {
    TakeImage(bytes);
    IllegalImage = 0;
    CheckImageIntegrity();
}

class PanelTest : public ::testing::Test {
protected:
    StartResult boot(const QByteArray& image) {
        LoadFlash(image);
        return StartPanel(outputs);
    }
    StartResult boot(const imagekit::ImageBuilder& image) { return boot(image.build()); }

    /// Passes time as the panel does: a cycle after every second tick of 10 ms.
    void run(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += 20) {
            ticks(2);
            cycles(1);
        }
    }
    void ticks(int count) {
        for (int i = 0; i < count; ++i) CountTick(tickCount);
    }
    void cycles(int count) {
        for (int i = 0; i < count; ++i) EngineCycle(outputs);
    }

    /// Writes a system word and lets it take effect.
    static void apply(std::uint16_t address, std::uint16_t value) {
        StoreWord(address, value);
        ApplySystemWord(address);
    }

    /// The frame of a page that is shown anew.
    const QImage& frameOf(std::uint16_t page) {
        ShowPage(page);
        cycles(1);
        return outputs.frame;
    }
    /// Opens a pop-up as its key does.
    static void openPopup(std::uint16_t page, std::uint16_t x, std::uint16_t y) {
        PopupActive = 1;
        PopupPage = page;
        PopupOriginX = x;
        PopupOriginY = y;
        OpenPopup(page, x, y);
    }
    /// Writes a text and zeros behind it, `room` bytes in all.
    static void setText(std::uint16_t address, std::string_view text, std::size_t room) {
        for (std::size_t i = 0; i < room; ++i)
            StoreByte(2 * std::size_t{address} + i, i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
    }
    static std::int64_t number(std::uint16_t address, imagekit::DataType type) {
        const NumericValue value = ReadNumeric(address, static_cast<std::uint8_t>(type));
        const auto magnitude = static_cast<std::int64_t>(value.magnitude);
        return value.negative ? -magnitude : magnitude;
    }

    QRgb pixel(int x, int y) const { return outputs.frame.pixel(x, y); }

    /// The media requests since the last call.
    std::vector<std::string> media() { return std::exchange(outputs.media, {}); }

    RecordedOutputs outputs;
    int tickCount = 0;
};

/// A panel that is quick to paint.
inline const imagekit::PanelConfig Small{.Width = 64, .Height = 48, .ColourMode = 1};

/// A page background of one colour.
inline imagekit::Solid PlainPage(const imagekit::PanelConfig& config, QColor colour) {
    return {config.Width, config.Height, colour};
}

/// A picture of one colour.
inline imagekit::Pixels Filled(int width, int height, QColor colour,
                               std::uint8_t format = imagekit::format::RGB565) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(colour);
    return {picture, format};
}

/// A picture of up to 256 px a side of which every pixel tells its place.
inline QImage Pattern(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.setPixel(x, y, qRgb(x, y, 99));
    return picture;
}

inline QImage Noise(int width, int height, QImage::Format format = QImage::Format_ARGB32) {
    std::mt19937 random(7);
    QImage picture(width, height, format);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.setPixel(x, y, random());
    return picture;
}

/// Records as they stand in their stream, also more of them than a page may have.
template <class Record>
imagekit::Bytes RawStream(const std::vector<Record>& records) {
    imagekit::ByteWriter stream;
    for (const auto& record : records) stream.bytes(imagekit::EncodeRecord(record, ""));
    return stream.data();
}

/// An image with a page of each colour.
inline imagekit::ImageBuilder ColouredPages(std::initializer_list<QColor> colours,
                                            const imagekit::PanelConfig& config = Small) {
    imagekit::ImageBuilder image(config);
    for (const QColor& colour : colours) image.addPage(PlainPage(config, colour));
    return image;
}

} // namespace panel
