// Every pixel format through every picture operation, held against the plain definition.
#include "graphics/picture_cache.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "tests/graphics/flash_bytes.h"
#include "tests/graphics/plain_pictures.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>

namespace panel {
namespace {

constexpr QSize Screen(40, 30);

/// All that a picture operation can change.
struct Scene {
    std::vector<QImage> surfaces;
    int lastZipMode = 0;
    ImageRow current;

    static std::vector<QImage*> all() {
        return {&FrameSurface, &PageBackground, &WorkSurface,  &BaseSurface,        &TextSurface,
                &ListSurfaceA, &ListSurfaceB,   &SlideSurface, &ImageScratchSurface};
    }
    static Scene take() {
        Scene scene{{}, LastZipMode, CurrentImage};
        for (const QImage* surface : all()) scene.surfaces.push_back(*surface);
        return scene;
    }
    void restore() const {
        for (std::size_t i = 0; i < surfaces.size(); ++i) *all()[i] = surfaces[i];
        LastZipMode = static_cast<std::uint8_t>(lastZipMode);
        CurrentImage = current;
    }
    bool operator==(const Scene&) const = default;
};

class Pictures : public ::testing::TestWithParam<int> {
protected:
    /// An image on one of the panels that treat pictures differently.
    void setUpPanel(int panel) {
        ColourMode = panel % 2;
        NandFlash = panel / 2 % 2;
        ICType = std::array<std::uint8_t, 3>{0, 3, 5}[static_cast<std::size_t>(panel / 4)];
        DisplayWidth = static_cast<std::uint16_t>(Screen.width());
        DisplayHeight = static_cast<std::uint16_t>(Screen.height());
        layOutFlash();
    }

    int random(int low, int high) { return std::uniform_int_distribution<>(low, high)(generator); }
    template <class T>
    T oneOf(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(random(0, static_cast<int>(choices.size()) - 1))];
    }

    QImage noise(QSize size, bool alpha) {
        QImage picture(size, QImage::Format_ARGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) {
                const int opacity = alpha ? oneOf<int>({0, 255, random(0, 255)}) : 255;
                picture.setPixel(x, y, qRgba(random(0, 255), random(0, 255), random(0, 255), opacity));
            }
        return picture.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    }

    /// Colours of which many are 0, since some formats take that for transparent.
    Bytes randomZip(int mode, QSize size) {
        ZipBytes zip{.Size = size, .Mode = mode};
        for (int segment = 0; segment < 3; ++segment) {
            ZipSegment& made = zip.Segments.emplace_back();
            made.Coding = oneOf<int>({0, 1, 1, 2});
            for (auto& word : made.Palette)
                word = static_cast<std::uint16_t>(random(0, 2) ? random(0, 0xFFFF) : 0);
            made.Data.resize(static_cast<std::size_t>(random(0, 60)) * 2);
            for (auto& byte : made.Data)
                byte = static_cast<std::uint8_t>(random(0, 3) ? random(0, 20) : random(0, 255));
        }
        return zip.build();
    }

    void layOutFlash() {
        Bytes flash(16000);
        for (auto& byte : flash) byte = static_cast<std::uint8_t>(random(0, 255));
        for (std::size_t i = 0; i + 12 < flash.size(); i += 12)
            std::fill_n(flash.begin() + i, random(0, 6), 0);
        zips = {Append(flash, {'Z', 'S', 8, 0, 8, 0, 1, 3}),
                Append(flash, randomZip(4, {5000, 9}))}; // too large for small chips
        for (const int mode : {3, 4, 5, 9})
            zips.push_back(Append(flash, randomZip(mode, {random(1, 50), random(1, 40)})));
        pngs.clear();
        const QImage opaque = noise({random(5, 50), random(5, 40)}, false), alpha = noise({20, 20}, true);
        Bytes cut = PngBytes(alpha);
        cut.resize(90);
        for (const Bytes& png : {PngBytes(opaque), PngBytes(alpha), cut,
                                 PngBytes(opaque.convertToFormat(QImage::Format_Indexed8))})
            pngs.push_back({.Address = Append(flash, png), .Extra = static_cast<std::uint32_t>(png.size())});
        zips.push_back(Append(flash, randomZip(3, {30, 20})));
        flash.resize(flash.size() - static_cast<std::size_t>(random(0, 10))); // ends inside the last
        LoadBytes(flash);
    }

    ImageRow randomRow(int format) {
        ImageRow row{.Address = oneOf(raw), .Extra = static_cast<std::uint32_t>(random(0, 0xFFFFFF))};
        if (format >= 3 && format <= 5) row.Address = oneOf(zips);
        if (format == 7 || format == 10 || (format == 2 && random(0, 3) == 0)) row = oneOf(pngs);
        const QSize size =
            oneOf<QSize>({{random(0, 50), random(0, 40)}, Screen, {5000, 9}, {1, 1}, {60, 50}});
        row.Width = static_cast<std::uint16_t>(size.width());
        row.Height = static_cast<std::uint16_t>(size.height());
        row.Format = static_cast<std::uint8_t>(format);
        return row;
    }

    void randomScene() {
        for (QImage* surface : Scene::all()) *surface = noise(Screen, surface != &FrameSurface);
        ListSurfaceA = noise({random(0, 15) ? 55 : 1100, 35}, true);
        SlideSurface = noise({120, 30}, true);
        for (QImage* surface : Scene::all()) surface->convertTo(QImage::Format_ARGB32_Premultiplied);
        if (random(0, 1)) ListSurfaceB = QImage();
        PopupActive = random(0, 3) == 0;
        PopupOriginX = 5;
        LastZipMode = static_cast<std::uint8_t>(random(0, 5));
        CurrentImage = {};
    }

    QPoint randomPlace(int low) { return {random(low, 45), random(low, 35)}; }
    QRect randomSource() {
        const QSize size = oneOf<QSize>({{random(0, 45), random(0, 35)}, {1, 1}, {5000, 9}, {60, 50}});
        return {oneOf<QPoint>({{0, 0}, randomPlace(0), {65535, 60000}}), size};
    }

    /// Runs the operation, with a cold cache as a rule and then with a warm one, and its plain definition.
    void expectSame(const char* name, const std::function<int()>& fast, const std::function<int()>& slow) {
        const Scene before = Scene::take();
        const int plainResult = slow();
        const Scene expected = Scene::take();
        if (random(0, 1)) DropDecodedPictures();
        for (const char* cache : {" with a cold cache", " with a warm cache"}) {
            before.restore();
            ASSERT_EQ(fast(), plainResult) << name << cache;
            ASSERT_TRUE(Scene::take() == expected) << name << cache;
        }
    }

    static constexpr int Panels = 12, TrialsPerPanel = 30;
    const std::vector<std::uint32_t> raw{0, 4001, 15900, 0x7FFFFFF0};
    std::vector<std::uint32_t> zips;
    std::vector<ImageRow> pngs;
    std::mt19937 generator{static_cast<unsigned>(GetParam())};
};

TEST_P(Pictures, EqualThePlainDefinition) {
    for (int trial = 0; trial < Panels * TrialsPerPanel && !HasFatalFailure(); ++trial) {
        if (trial % TrialsPerPanel == 0) setUpPanel(trial / TrialsPerPanel);
        randomScene();
        const ImageRow row = randomRow(GetParam());
        PageImage = randomRow(oneOf<int>({0, 1, 2, 3, 4, 6, 7, 8, 10, 16, 0xFF}));
        if (random(0, 1)) PageImage.Address = row.Address;
        if (random(0, 1)) PageImage.Extra = row.Extra;
        QImage& target = *oneOf<QImage*>({&FrameSurface, &WorkSurface, &ListSurfaceA, &ImageScratchSurface});
        const QPoint at = randomPlace(-20);
        const QRect source = randomSource();
        const int stride = oneOf<int>({row.Width, 33, 40});
        const int selector = random(0, 6);
        SCOPED_TRACE(trial);

        expectSame(
            "BlitImage", [&] { return static_cast<int>(BlitImage(target, at, row, source, stride)); },
            [&] { return static_cast<int>(plain::BlitImage(target, at, row, source, stride)); });
        expectSame(
            "DrawImage", [&] { return DrawImage(target, at, row, static_cast<Backdrop>(selector)), 0; },
            [&] { return plain::DrawImage(target, at, row, selector), 0; });
        expectSame(
            "RestoreFrameRect", [&] { return RestoreFrameRect(at, row, source, stride), 0; },
            [&] { return plain::RestoreFrameRect(at, row, source, stride), 0; });
        PageImage.Format = row.Format;
        expectSame(
            "RestoreWorkRect", [&] { return RestoreWorkRect(at, source), 0; },
            [&] { return plain::RestoreWorkRect(at, source), 0; });
    }
}

INSTANTIATE_TEST_SUITE_P(AllFormats, Pictures,
                         ::testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 0xFF),
                         [](const auto& row) { return "Format" + std::to_string(row.param); });

} // namespace
} // namespace panel
