// A fixture that boots a panel from an image and drives it in virtual time.
#pragma once

#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/memory_image.h"
#include "host/panel_outputs.h"
#include "host/serial_recorder.h"
#include "imagekit/image_builder.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/pointer.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <string>
#include <vector>

namespace panel {

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

/// An image with a page of each colour.
inline imagekit::ImageBuilder ColouredPages(std::initializer_list<QColor> colours,
                                            const imagekit::PanelConfig& config = Small) {
    imagekit::ImageBuilder image(config);
    for (const QColor& colour : colours) image.addPage(PlainPage(config, colour));
    return image;
}

} // namespace panel
