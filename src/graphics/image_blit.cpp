#include "graphics/image_blit.h"

#include "graphics/colour.h"
#include "graphics/picture_cache.h"
#include "graphics/pieces.h"
#include "graphics/png_image.h"
#include "graphics/primitives.h"
#include "graphics/raw_picture.h"
#include "graphics/surfaces.h"
#include "graphics/zip_image.h"
#include "host/config_block.h"

#include <optional>

namespace panel {
namespace {

bool isPageImage(const ImageRow& image) { return image.Address == PageImage.Address; }

/// Colours have no data, so their addresses tell nothing: another colour is another picture.
bool isPopupBackground(const ImageRow& image) {
    const bool otherColour = image.Format == format::SolidColour && image.Extra != PageImage.Extra;
    return PopupActive == 1 && isPageImage(image) && !otherColour;
}

int drawableHeight(int width, int height) { return SmallChip() ? SmallChipHeight(width, height) : height; }

/// The piece as far as the chip can draw it.
QRect drawable(QRect piece) {
    return {piece.topLeft(), QSize(piece.width(), drawableHeight(piece.width(), piece.height()))};
}

Pixel solidPixel(std::uint32_t extra) { return ExpandPixel(extra, ColourKind::Opaque); }

void copyRaw(QImage& target, QPoint at, const ImageRow& image, QRect piece, int stride) {
    const RawPicture picture(image.Address, stride, image.Format);
    if (!picture.isReadable()) return;
    ForEachRow(target, at, piece.size(), [&](Pixel* row, int x, int y, int count) {
        picture.copy(row, piece.x() + x, piece.y() + y, count);
    });
}

/// A PNG without blending. It stands on black, which shows when it cannot be loaded.
void copyPng(QImage& target, QPoint at, const ImageRow& image, QRect piece) {
    const QImage picture = PngPicture(image.Address, image.Extra);
    if (picture.isNull())
        FillPiece(target, at, piece.size(), OpaqueBlack);
    else
        CopyPiece(target, at, picture, piece);
}

/// What lies behind a picture with transparency: a place on a surface.
struct Behind {
    const QImage& surface;
    QPoint from; // the place of the piece's top left corner
};

/// Puts what lies behind a piece on the target and calls `lay(row, x, y, count)` for each row, with places in
/// the piece. A target that lies behind itself needs no copy.
template <class Lay>
void compose(QImage& target, QPoint at, QSize size, const Behind& behind, Lay lay) {
    std::optional<PictureRows> backdrop;
    if (&behind.surface != &target) backdrop.emplace(behind.surface);
    ForEachRow(target, at, size, [&](Pixel* row, int x, int y, int count) {
        if (backdrop)
            backdrop->copy(row, std::int64_t{behind.from.x()} + x, std::int64_t{behind.from.y()} + y, count);
        lay(row, x, y, count);
    });
}

void composeRaw(QImage& target, QPoint at, const ImageRow& image, QRect piece, int stride,
                const Behind& behind) {
    const RawPicture picture(image.Address, stride, image.Format);
    if (!picture.isReadable()) return;
    const bool keyed = image.Format == format::RGB565Key;
    compose(target, at, piece.size(), behind, [&](Pixel* row, int x, int y, int count) {
        if (keyed)
            picture.key(row, piece.x() + x, piece.y() + y, count);
        else
            picture.over(row, piece.x() + x, piece.y() + y, count);
    });
}

/// `picture` is held by value: when it is the target as well, the target detaches from it. Null lays nothing.
void composePicture(QImage& target, QPoint at, const QImage picture, QRect piece, const Behind& behind) {
    const PictureRows rows(picture);
    compose(target, at, piece.size(), behind, [&](Pixel* row, int x, int y, int count) {
        if (picture.isNull()) return;
        rows.over(row, std::int64_t{piece.x()} + x, std::int64_t{piece.y()} + y, count);
    });
}

/// A piece of a picture with transparency over what lies behind it; other formats draw nothing.
void composeImage(QImage& target, QPoint at, const ImageRow& image, QRect piece, int stride,
                  const Behind& behind) {
    switch (image.Format) {
    case format::RGB565Key:
    case format::aRGB4444:
    case format::aRGB8888:
    case format::RGB565A8: return composeRaw(target, at, image, piece, stride, behind);
    case format::PngAlpha:
        return composePicture(target, at, PngPicture(image.Address, image.Extra), piece, behind);
    case format::ScratchAlpha: return composePicture(target, at, ImageScratchSurface, piece, behind);
    default: return;
    }
}

/// RGB565 with the address of the page on show stands for the page's background.
void blitPagePiece(QImage& target, QPoint at, const ImageRow& image, QRect piece, int stride) {
    ImageRow page = image;
    page.Extra = PageImage.Extra;
    page.Format = PageImage.Format;
    switch (page.Format) {
    case format::ZipImage: return CopyPiece(target, at, PageBackground, piece);
    case format::SolidColour: return FillPiece(target, at, piece.size(), solidPixel(page.Extra));
    case format::PngOpaque:
    case format::PngAlpha: return copyPng(target, at, page, piece);
    case format::aRGB4444:
    case format::aRGB8888: return copyRaw(target, at, page, piece, stride);
    default: return copyRaw(target, at, image, piece, stride);
    }
}

/// It stands on black. On small chips only its first rows are there.
void copyZip(QImage& target, QPoint at, std::uint32_t address, const ZipHead& head, QRect piece) {
    const QImage picture = ZipPicture(address, head);
    const QImage limited(picture.constBits(), picture.width(), drawableHeight(head.Width, head.Height),
                         picture.bytesPerLine(), picture.format()); // borrows the rows
    CopyPieceOnBlack(target, at, limited, piece);
}

BlitResult blitZip(QImage& target, QPoint at, std::uint32_t address, QRect piece) {
    const auto head = ReadZipHead(address);
    if (!head) return BlitResult::BadData;
    LastZipMode = head->Mode;
    CurrentImage.Height = static_cast<std::uint16_t>(drawableHeight(head->Width, head->Height));
    copyZip(target, at, address, *head, piece);
    return BlitResult::Done;
}

bool isZip(std::uint8_t imageFormat) {
    return imageFormat >= format::ZipImage && imageFormat <= format::ZipImageLast;
}

/// The surface of a selector; null when there is none of that name or none now.
const QImage* backdropSurface(Backdrop selector) {
    const auto existing = [](const QImage& surface) { return surface.isNull() ? nullptr : &surface; };
    switch (selector) {
    case Backdrop::Page: return existing(PageBackground);
    case Backdrop::Frame: return existing(FrameSurface);
    case Backdrop::Base: return existing(BaseSurface);
    case Backdrop::Text: return existing(TextSurface);
    case Backdrop::ListB: return existing(ListSurfaceB);
    }
    return nullptr;
}

/// Two kinds of pictures cannot take every backdrop.
bool servesBackdrop(std::uint8_t imageFormat, Backdrop selector) {
    if (imageFormat == format::RGB565Key || isZip(imageFormat)) return selector != Backdrop::Text;
    return imageFormat != format::RGB565A8 || selector != Backdrop::ListB;
}

bool isFullScreen(const ImageRow& image) {
    return image.Width == DisplayWidth && image.Height == DisplayHeight;
}

void drawZip(QPoint at, const ImageRow& image, const QImage* behind) {
    const auto head = ReadZipHead(image.Address);
    if (!head) return;
    LastZipMode = head->Mode;
    const QRect whole(0, 0, head->Width, head->Height);
    if (head->Mode == zip_mode::Opaque) {
        CopyPieceOnBlack(WorkSurface, {0, 0}, ZipPicture(image.Address, *head), whole);
        return CopyToFrame(WorkSurface, whole, at);
    }
    if ((head->Mode != zip_mode::Keyed && head->Mode != zip_mode::Alpha) || !behind) return;
    const QRect shown = drawable(whole);
    CopyPiece(WorkSurface, {0, 0}, *behind, {at, shown.size()});
    BlendPiece(WorkSurface, {0, 0}, ZipPicture(image.Address, *head), whole);
    CopyToFrame(WorkSurface, shown, at);
}

/// A whole picture with transparency, limited as its format is on small chips.
void drawComposed(QImage& target, QPoint at, ImageRow image, const QImage* behind) {
    if (!behind) return;
    const QRect whole(0, 0, image.Width, image.Height);
    const bool limited = image.Format == format::RGB565Key || image.Format == format::aRGB4444
                         || image.Format == format::RGB565A8;
    if (image.Format == format::aRGB4444 && IsPngAt(image.Address)) image.Format = format::PngAlpha;
    composeImage(target, at, image, limited ? drawable(whole) : whole, image.Width, {*behind, at});
}

} // namespace

BlitResult BlitImage(QImage& target, QPoint at, const ImageRow& image, QRect source, int stride) {
    if (source.width() <= 0) return BlitResult::Nothing;
    const QRect piece = drawable(source);
    if (isZip(image.Format)) return blitZip(target, at, image.Address, piece);
    switch (image.Format) {
    case format::RGB565:
        if (isPopupBackground(image))
            CopyPiece(target, at, PageBackground, piece);
        else if (isPageImage(image))
            blitPagePiece(target, at, image, piece, stride);
        else
            copyRaw(target, at, image, piece, stride);
        break;
    case format::PngOpaque: copyPng(target, at, image, piece); break;
    case format::SolidColour:
        if (isPageImage(image)) FillPiece(target, at, piece.size(), solidPixel(PageImage.Extra));
        break;
    default: composeImage(target, at, image, piece, stride, {target, at}); break;
    }
    return BlitResult::Done;
}

void BlitOwnData(QImage& target, QPoint at, const ImageRow& image) {
    const QRect piece = drawable({0, 0, image.Width, image.Height});
    if (isZip(image.Format)) {
        if (const auto head = ReadZipHead(image.Address)) copyZip(target, at, image.Address, *head, piece);
        return;
    }
    switch (image.Format) {
    case format::RGB565: return copyRaw(target, at, image, piece, image.Width);
    case format::PngOpaque: return copyPng(target, at, image, piece);
    case format::ScratchAlpha: return; // the scratch is the engine's
    default: return composeImage(target, at, image, piece, image.Width, {target, at});
    }
}

bool DrawsSomething(const ImageRow& image) {
    if (!image.hasPicture()) return false;
    if (isZip(image.Format)) return ReadZipHead(image.Address).has_value();
    if (image.Format == format::PngOpaque || image.Format == format::PngAlpha) return true;
    return RawPicture(image.Address, image.Width, image.Format).isReadable();
}

void BlitPage(QPoint at, QRect source) {
    ImageRow page = PageImage;
    page.Format = format::RGB565;
    BlitImage(WorkSurface, at, page, source, DisplayWidth);
}

void DrawImage(QImage& target, QPoint at, const ImageRow& image, Backdrop backdrop) {
    const QRect whole(0, 0, image.Width, image.Height);
    const QImage* behind = servesBackdrop(image.Format, backdrop) ? backdropSurface(backdrop) : nullptr;
    if (isZip(image.Format)) return drawZip(at, image, behind);
    switch (image.Format) {
    case format::SolidColour: return FillPiece(target, at, whole.size(), solidPixel(image.Extra));
    case format::RGB565: return copyRaw(target, at, image, whole, image.Width);
    case format::PngOpaque: {
        const QImage picture = PngPicture(image.Address, image.Extra);
        return CopyPiece(target, at, picture, picture.rect());
    }
    case format::aRGB8888:
        if (isFullScreen(image)) return copyRaw(target, at, image, whole, image.Width);
        return drawComposed(target, at, image, behind);
    case format::ScratchAlpha: return; // only a piece of it can be drawn
    default: return drawComposed(target, at, image, behind);
    }
}

void RestoreFrameRect(QPoint at, const ImageRow& image, QRect source, int stride) {
    const Behind page{PageBackground, source.topLeft()};
    if (isPopupBackground(image) || isZip(image.Format))
        return CopyPiece(FrameSurface, at, PageBackground, source);
    switch (image.Format) {
    case format::SolidColour: return FillPiece(FrameSurface, at, source.size(), solidPixel(image.Extra));
    case format::RGB565: return copyRaw(FrameSurface, at, image, source, stride);
    case format::PngOpaque:
        if (isPageImage(image)) return CopyPiece(FrameSurface, at, PageBackground, source);
        return copyPng(FrameSurface, at, image, source);
    case format::RGB565Key:
    case format::aRGB4444: return composeImage(FrameSurface, at, image, drawable(source), stride, page);
    case format::ScratchAlpha: return; // no page has it
    default: return composeImage(FrameSurface, at, image, source, stride, page);
    }
}

void RestoreWorkRect(QPoint at, QRect source) {
    if (PopupActive == 1 || PageImage.Format == format::ZipImage)
        return CopyPiece(WorkSurface, at, PageBackground, source);
    switch (PageImage.Format) {
    case format::RGB565:
    case format::RGB565Key:
    case format::aRGB4444:
    case format::aRGB8888:
    case format::PngOpaque:
    case format::PngAlpha:
    case format::SolidColour: BlitImage(WorkSurface, at, PageImage, source, DisplayWidth); break;
    default: break;
    }
}

} // namespace panel
