// qrcode: shows a text of the store as a QR code on a white square. Keeps no row. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QByteArray>
#include <QImage>
#include <QRect>

namespace panel {

/// A record tells the side of the square in this unit.
inline constexpr int QrUnitPixels = 50;

/// Draws the code; a text that is too long for any leaves the target as it was.
void DisplayQrCode(const Parameters& p);

/// The piece `visible` of the code's picture, which has `side` x `side` px, margin included. A null image for
/// a text in UTF-8 that no code can hold.
QImage MakeQrImage(const QByteArray& text, int side, QRect visible);

} // namespace panel
