// Writes sound images for the fuzz targets to start from: make-seeds FOLDER.
#include "imagekit/image_builder.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

using namespace imagekit;

constexpr int ScriptBytes = 64; // that the image target takes off the end

QImage gradient(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgba(x * 8, y * 8, x ^ y, x * y));
    return image;
}

bool hasOnly16Bits(std::uint8_t format) { return format == 8 || (format >= 3 && format <= 5); }

/// An image with a page of every picture format, a pop-up, presets, languages and all three streams.
ImageBuilder everyFormat(PanelConfig config) {
    ImageBuilder image(config);
    for (const std::uint8_t format : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10}) {
        if (config.ColourMode == 1 && hasOnly16Bits(format)) continue;
        image.addPage(Pixels{gradient(40, 30), format});
    }
    Page& page = image.addPage(Solid{40, 30, Qt::blue});
    for (std::uint16_t kind = 1; kind <= 0x22; ++kind) {
        page.add(DisplayRecord{.Kind = kind, .Block = Bytes(28, 0x11)});
        page.add(DisplayRecord{.Kind = kind, .ParameterAddress = 0x0040, .Block = Bytes(28, 0)});
        page.add(GroupRecord{1, {.Kind = kind, .Block = Bytes(20, 0x11)}});
    }
    for (std::uint16_t family = 0x8000; family <= 0x800F; ++family)
        page.add(TouchRecord{.Family = family, .Notify = true, .Body = Bytes(30, 0x05)});
    page.add(PagePreset{1, {{0x0100, 1}, {0x7000, 0}, {0x703F, 1}}});
    image.page(0).add(PagePreset{2, {{0x7014, 2}, {0x7000, 10}}});
    const Bytes preset{1, 2, 3, 4};
    image.addLanguagePreset(1, 0x0100, preset);
    image.addPicture(Pixels{gradient(16, 16), 6});
    image.setWord(0x0100, 0x1234);
    return image;
}

bool writeSeed(const QDir& folder, const QString& name, const ImageBuilder& image) {
    QFile file(folder.filePath(name));
    const QByteArray bytes = image.build() + QByteArray(ScriptBytes, '\x07');
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::fprintf(stderr, "usage: make-seeds FOLDER\n");
        return 2;
    }
    const QDir folder(argv[1]);
    bool written = true;
    for (const std::uint8_t chip : {1, 4, 5})
        for (const std::uint8_t mode : {0, 1})
            for (const bool nand : {false, true})
                written &= writeSeed(
                    folder, QStringLiteral("chip%1-mode%2-%3").arg(chip).arg(mode).arg(nand ? "nand" : "nor"),
                    everyFormat({.Width = 48,
                                 .Height = 40,
                                 .ColourMode = mode,
                                 .ICType = chip,
                                 .NandFlash = nand,
                                 .LangueNum = 2}));
    return written ? 0 : 1;
}
