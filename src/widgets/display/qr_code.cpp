#include "widgets/display/qr_code.h"

#include "graphics/surfaces.h"
#include "store/variable_store.h"
#include "widgets/display/placement.h"

#include <QPainter>
#include <QString>

#include <optional>
#include <qrcodegen/qrcodegen.hpp>
#include <vector>

namespace panel {
namespace {

using qrcodegen::QrCode;
using qrcodegen::QrSegment;

namespace field {
constexpr std::size_t Text = 5;
constexpr std::size_t X = 9;
constexpr std::size_t Y = 0x0B;
constexpr std::size_t SizeUnits = 0x0D;
} // namespace field

/// The bytes up to the first zero, as UTF-8 without broken characters. A reader takes a code for UTF-8.
QByteArray textAt(std::uint16_t address) {
    QByteArray text;
    for (std::size_t at = 2 * std::size_t{address}; const std::uint8_t byte = ReadByte(at); ++at)
        text.append(static_cast<char>(byte));
    return QString::fromUtf8(text).toUtf8();
}

std::optional<QrCode> encode(const QByteArray& text) {
    constexpr int anyVersionFrom = 1, anyVersionTo = 40, mask = 2;
    try {
        return QrCode::encodeSegments(QrSegment::makeSegments(text.constData()), QrCode::Ecc::HIGH,
                                      anyVersionFrom, anyVersionTo, mask, false);
    } catch (const qrcodegen::data_too_long&) {
        return std::nullopt;
    }
}

int marginOf(int side) {
    switch (side) {
    case 50: return 3;
    case 100: return 5;
    default: return 10;
    }
}

/// For each of `pixels` px the module that a scaled picture shows there. The modules come out of unequal size
/// where their number does not divide the pixels, and Qt rounds differently along rows, along columns, and in
/// other formats. A symbol of full size could be larger than memory, so one row and one column are scaled.
std::vector<int> modulesOfPixels(int modules, int pixels, Qt::Orientation along) {
    const auto sized = [along](int length) {
        return along == Qt::Horizontal ? QSize(length, 1) : QSize(1, length);
    };
    const auto place = [along](int i) { return along == Qt::Horizontal ? QPoint(i, 0) : QPoint(0, i); };
    QImage ramp(sized(modules), QImage::Format_RGB888);
    for (int i = 0; i < modules; ++i) ramp.setPixel(place(i), qRgb(i, i, i));
    const QImage scaled = ramp.scaled(sized(pixels), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    std::vector<int> result;
    for (int i = 0; i < pixels; ++i) result.push_back(qBlue(scaled.pixel(place(i))));
    return result;
}

} // namespace

QImage MakeQrImage(const QByteArray& text, int side, QRect visible) {
    const std::optional<QrCode> code = encode(text);
    if (!code) return {};
    QImage picture(visible.size(), QImage::Format_RGB888);
    picture.fill(Qt::white);
    const int margin = marginOf(side), symbol = side - 2 * margin;
    const std::vector<int> columns = modulesOfPixels(code->getSize(), symbol, Qt::Horizontal);
    const std::vector<int> rows = modulesOfPixels(code->getSize(), symbol, Qt::Vertical);
    const QRect inSymbol = visible.translated(-margin, -margin) & QRect(0, 0, symbol, symbol);
    for (int y = inSymbol.top(); y <= inSymbol.bottom(); ++y)
        for (int x = inSymbol.left(); x <= inSymbol.right(); ++x)
            if (code->getModule(columns[static_cast<std::size_t>(x)], rows[static_cast<std::size_t>(y)]))
                picture.setPixel(QPoint(x + margin, y + margin) - visible.topLeft(), qRgb(0, 0, 0));
    return picture;
}

void DisplayQrCode(const Parameters& p) {
    QImage& target = p.inList() ? ListSurfaceA : FrameSurface;
    const QPoint at = QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift();
    const int side = p.u8(field::SizeUnits) * QrUnitPixels;
    const QRect visible = QRect(at, QSize(side, side)) & target.rect();
    if (visible.isEmpty()) return;
    const QImage picture = MakeQrImage(textAt(p.u16(field::Text)), side, visible.translated(-at));
    if (!picture.isNull()) QPainter(&target).drawImage(visible.topLeft(), picture);
}

} // namespace panel
