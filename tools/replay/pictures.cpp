#include "replay/pictures.h"

#include "replay/command_error.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace replay {
namespace {

const QRgb* row(const QImage& picture, int y) {
    return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
}

/// Calls visit(x, y) for each pixel that differs, in reading order.
template <class Visit>
void forEachDifference(const QImage& a, const QImage& b, Visit visit) {
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (row(a, y)[x] != row(b, y)[x]) visit(x, y);
}

QRgb darkened(QRgb colour) { return qRgb(qRed(colour) / 4, qGreen(colour) / 4, qBlue(colour) / 4); }

} // namespace

QImage StraightPicture(const QImage& picture) { return picture.convertToFormat(QImage::Format_ARGB32); }

QRgb StraightPixel(const QImage& picture, QPoint at) {
    if (!picture.rect().contains(at))
        throw CommandError(QString("there is no pixel (%1, %2) on a panel of %3 x %4 pixels")
                               .arg(at.x())
                               .arg(at.y())
                               .arg(picture.width())
                               .arg(picture.height()));
    return StraightPicture(picture.copy({at, QSize(1, 1)})).pixel(0, 0);
}

QString ColourText(QRgb straightColour) { return QString("#%1").arg(straightColour, 8, 16, QChar('0')); }

void SavePicture(const QImage& picture, const QString& file) {
    if (!StraightPicture(picture).save(file, "PNG")) throw CommandError("cannot write " + file);
}

Reference ReadReference(const QString& file, QSize most) {
    if (!QFileInfo(file).isFile()) return {};
    QImageReader reader(file, "PNG");
    const QSize size = reader.size();
    if (!size.isValid()) return {.kind = Reference::Kind::NoPicture};
    if (size.width() > most.width() || size.height() > most.height())
        return {.kind = Reference::Kind::TooLarge, .size = size};
    const QImage picture = reader.read();
    if (picture.isNull()) return {.kind = Reference::Kind::NoPicture};
    return {.kind = Reference::Kind::Picture, .picture = StraightPicture(picture), .size = size};
}

Difference ComparePictures(const QImage& expected, const QImage& actual) {
    Difference found;
    forEachDifference(expected, actual, [&found](int x, int y) {
        if (found.pixels++ == 0) found.first = {x, y};
    });
    return found;
}

QImage DifferencePicture(const QImage& expected, const QImage& actual) {
    QImage picture(actual.size(), QImage::Format_RGB32);
    for (int y = 0; y < actual.height(); ++y)
        std::transform(row(actual, y), row(actual, y) + actual.width(),
                       reinterpret_cast<QRgb*>(picture.scanLine(y)), darkened);
    forEachDifference(expected, actual,
                      [&picture](int x, int y) { picture.setPixel(x, y, qRgb(255, 0, 0)); });
    return picture;
}

} // namespace replay
