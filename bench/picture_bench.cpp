// The picture operations on an 800 x 480 surface. Each prints how many memcpys of that surface it costs,
// against a memcpy timed in turn with it, and so does the plain definition (a pixel at a time, on a smaller
// surface) and QPainter where a ready QImage lets it do the same job.
#include "graphics/colour.h"
#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "host/memory_image.h"
#include "yardstick.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QPainter>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace panel;
using Bytes = std::vector<std::uint8_t>;
using yardstick::Job;
using yardstick::measure;

constexpr QSize Screen(800, 480);
constexpr QSize SmallScreen(80, 48); // of the plain definition
constexpr double PlainScale = 100;   // times as many pixels on the screen
constexpr QRect WholeScreen({0, 0}, Screen);

std::uint32_t randomWord() {
    static std::mt19937 generator(1);
    return generator();
}

Bytes randomBytes(std::size_t count) {
    Bytes bytes(count);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(randomWord());
    return bytes;
}

/// Words of which a quarter is 0, mixed pixel by pixel.
Bytes keyedWords() {
    Bytes bytes = randomBytes(std::size_t{2} * Screen.width() * Screen.height());
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        if (randomWord() % 4 == 0) bytes[i] = bytes[i + 1] = 0;
    return bytes;
}

void load(const Bytes& bytes) {
    TakeImage(bytes);
    DropDecodedPictures();
}

void startPanel(const Bytes& bytes) {
    ICType = 6;
    ColourMode = 0;
    DisplayWidth = static_cast<std::uint16_t>(Screen.width());
    DisplayHeight = static_cast<std::uint16_t>(Screen.height());
    MakeSurfaces(Screen);
    PageImage = {.Address = 0xFFFFFFFF};
    load(bytes);
}

/// A compressed picture of the screen's size with runs of 1 to 2 x mean - 1 pixels.
Bytes zipBytes(int mode, int meanRun) {
    Bytes runs;
    for (int pixels = 0; pixels < Screen.width() * Screen.height();) {
        const auto run = static_cast<int>(randomWord() % static_cast<unsigned>(2 * meanRun - 1)) + 1;
        runs.push_back(static_cast<std::uint8_t>(run - 1));
        runs.push_back(static_cast<std::uint8_t>(randomWord()));
        pixels += run;
    }
    Bytes bytes{'Z', 'R', 0x20, 0x03, 0xE0, 0x01, 1, static_cast<std::uint8_t>(mode), 0, 0, 0, 0};
    for (int shift = 0; shift < 24; shift += 8)
        bytes.push_back(static_cast<std::uint8_t>(runs.size() >> shift));
    bytes.push_back(1);
    for (int i = 0; i < 512; ++i) bytes.push_back(static_cast<std::uint8_t>(randomWord()));
    bytes.insert(bytes.end(), runs.begin(), runs.end());
    return bytes;
}

/// A picture as pages have them: opaque and empty areas with soft edges.
QImage softPicture(bool alpha) {
    QImage picture(Screen, QImage::Format_ARGB32_Premultiplied);
    picture.fill(alpha ? Qt::transparent : Qt::darkBlue);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 40; ++i) {
        painter.setBrush(QColor::fromRgba(randomWord() | 0xFF000000));
        painter.drawEllipse(
            QPoint(static_cast<int>(randomWord() % 800), static_cast<int>(randomWord() % 480)), 60, 40);
    }
    painter.end();
    return picture.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

QImage noisePicture() {
    QImage picture(Screen, QImage::Format_ARGB32);
    for (int y = 0; y < Screen.height(); ++y)
        for (int x = 0; x < Screen.width(); ++x) picture.setPixel(x, y, randomWord());
    return picture;
}

Bytes pngBytes(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return {bytes.begin(), bytes.end()};
}

void blit(std::uint8_t imageFormat) {
    const ImageRow row{.Extra = static_cast<std::uint32_t>(FlashImage.size), .Format = imageFormat};
    BlitImage(FrameSurface, {0, 0}, row, WholeScreen, Screen.width());
}

// The engine's operations.

void rawPicture(benchmark::State& state, std::uint8_t imageFormat) {
    startPanel(imageFormat == format::RGB565Key ? keyedWords() : randomBytes(2'000'000));
    measure(state, [=] { blit(imageFormat); });
}

void rawPicture24(benchmark::State& state) {
    startPanel(randomBytes(2'000'000));
    ColourMode = 1;
    measure(state, [=] { blit(format::RGB565); });
}

void zipPicture(benchmark::State& state, int mode, bool cached) {
    startPanel(zipBytes(mode, static_cast<int>(state.range(0))));
    measure(
        state, [] { blit(format::ZipImage); }, 1,
        [=] {
            if (!cached) DropDecodedPictures();
        });
}

void pngPicture(benchmark::State& state, std::uint8_t imageFormat, const QImage& picture, bool cached) {
    startPanel(pngBytes(picture));
    measure(
        state, [=] { blit(imageFormat); }, 1,
        [=] {
            if (!cached) DropDecodedPictures();
        });
}

void fillRectangle(benchmark::State& state) {
    startPanel({});
    measure(state, [] { FillFrameRect(WholeScreen, 0x1234); });
}

void copyRectangle(benchmark::State& state) {
    startPanel({});
    measure(state, [] { CopySurfaceRect(WorkSurface, WholeScreen, FrameSurface, {0, 0}); });
}

void sharedFrame(benchmark::State& state) { // the first write after the window has taken a frame
    startPanel({});
    QImage shown;
    measure(
        state,
        [] {
            FillFrameRect({0, 0, 1, 1}, 0x1234);
        },
        1, [&] { shown = FrameSurface; });
}

void onePixelPiece(benchmark::State& state) { // as the ring widgets cut their sectors; per 1000 pieces
    startPanel(pngBytes(softPicture(true)));
    const ImageRow row{.Extra = static_cast<std::uint32_t>(FlashImage.size), .Format = format::PngAlpha};
    measure(state, [&] {
        for (int i = 0; i < 1000; ++i) BlitImage(WorkSurface, {i % 800, 5}, row, {i % 800, 7, 1, 1}, 800);
    });
}

// The plain definition, a pixel at a time.

void plainReplace(benchmark::State& state) {
    startPanel(randomBytes(2'000'000));
    QImage target(SmallScreen, QImage::Format_ARGB32_Premultiplied);
    measure(
        state,
        [&] {
            for (int y = 0; y < SmallScreen.height(); ++y)
                for (int x = 0; x < SmallScreen.width(); ++x)
                    target.setPixelColor(x, y,
                                         ExpandColour(ReadU16(static_cast<std::uint32_t>(2 * (y * 80 + x))),
                                                      ColourKind::Opaque));
        },
        PlainScale);
}

void plainBlend(benchmark::State& state) {
    startPanel(randomBytes(2'000'000));
    QImage target(SmallScreen, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::black);
    measure(
        state,
        [&] {
            for (int y = 0; y < SmallScreen.height(); ++y)
                for (int x = 0; x < SmallScreen.width(); ++x) {
                    QPainter painter(&target);
                    painter.setPen(ExpandColour(ReadU16(static_cast<std::uint32_t>(2 * (y * 80 + x))),
                                                ColourKind::WithAlpha));
                    painter.drawPoint(x, y);
                }
        },
        PlainScale);
}

// QPainter with a picture that is ready in memory.

void painterDraws(benchmark::State& state, const QImage& picture, QPainter::CompositionMode mode) {
    startPanel({});
    const QImage ready = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        QPainter painter(&FrameSurface);
        painter.setCompositionMode(mode);
        painter.drawImage(0, 0, ready);
    });
}

void painterFills(benchmark::State& state) {
    startPanel({});
    measure(state, [] { QPainter(&FrameSurface).fillRect(WholeScreen, Qt::blue); });
}

using Picture = QImage (*)();
QImage softAlpha() { return softPicture(true); }
QImage softOpaque() { return softPicture(false); }

benchmark::internal::Benchmark* add(const std::string& name,
                                    const std::function<void(benchmark::State&)>& run) {
    return benchmark::RegisterBenchmark(name.c_str(), run)
        ->UseManualTime()
        ->Iterations(400)
        ->Unit(benchmark::kMicrosecond);
}

void addRaw() {
    const auto raw = [](std::uint8_t imageFormat) {
        return [=](benchmark::State& state) { rawPicture(state, imageFormat); };
    };
    add("engine/opaque 16 bit", raw(format::RGB565));
    add("engine/opaque 24 bit", rawPicture24);
    add("engine/keyed 16 bit", raw(format::RGB565Key));
    add("engine/alpha 16 bit", raw(format::aRGB4444));
    add("engine/alpha 16 bit with alpha byte", raw(format::RGB565A8));
    add("engine/alpha 32 bit", raw(format::aRGB8888));
}

void addDecoded() {
    for (const bool cached : {false, true}) {
        const std::string suffix = cached ? " cached" : "";
        for (const int mode : {3, 5})
            add("engine/compressed mode " + std::to_string(mode) + suffix + ", mean run",
                [=](benchmark::State& state) { zipPicture(state, mode, cached); })
                ->Arg(1)
                ->Arg(4)
                ->Arg(32);
        const auto png = [=](std::uint8_t imageFormat, Picture picture) {
            return [=](benchmark::State& state) { pngPicture(state, imageFormat, picture(), cached); };
        };
        const int iterations = cached ? 400 : 20;
        add("engine/PNG opaque" + suffix, png(format::PngOpaque, softOpaque))->Iterations(iterations);
        add("engine/PNG alpha" + suffix, png(format::PngAlpha, softAlpha))->Iterations(iterations);
        add("engine/PNG alpha noise" + suffix, png(format::PngAlpha, noisePicture))->Iterations(iterations);
    }
}

void addPainter() {
    constexpr auto source = QPainter::CompositionMode_Source;
    constexpr auto over = QPainter::CompositionMode_SourceOver;
    const auto draws = [](Picture picture, QPainter::CompositionMode mode) {
        return [=](benchmark::State& state) { painterDraws(state, picture(), mode); };
    };
    add("QPainter/copy", draws(softOpaque, source));
    add("QPainter/blend soft picture", draws(softAlpha, over));
    add("QPainter/blend noise", draws(noisePicture, over));
    add("QPainter/fill", painterFills);
}

const bool Added = [] {
    addRaw();
    addDecoded();
    add("engine/fill", fillRectangle);
    add("engine/copy rectangle", copyRectangle);
    add("engine/first write on a shared frame", sharedFrame);
    add("engine/1000 pieces of one pixel of a PNG", onePixelPiece);
    add("plain/opaque 16 bit", plainReplace)->Iterations(20);
    add("plain/alpha 16 bit", plainBlend)->Iterations(20);
    addPainter();
    return true;
}();

} // namespace
