// Pictures of the panel on disk: writing them, and comparing the panel with one.
#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

namespace replay {

/// Pictures are compared, shown and written with straight colours, as a PNG holds them.
QImage StraightPicture(const QImage& picture);
/// One pixel of it. Throws CommandError when the point lies outside.
QRgb StraightPixel(const QImage& picture, QPoint at);
QString ColourText(QRgb straightColour);

/// Throws CommandError when the file cannot be written.
void SavePicture(const QImage& picture, const QString& file);

/// A reference picture as found on disk.
struct Reference {
    enum class Kind { Missing, NoPicture, TooLarge, Picture };
    Kind kind = Kind::Missing;
    QImage picture = {}; // straight; null unless kind is Picture
    QSize size = {};     // of a Picture and of one that is TooLarge
};

/// Reads a picture; one above `most` in width or height is not decoded.
Reference ReadReference(const QString& file, QSize most);

struct Difference {
    int pixels = 0; // how many differ
    QPoint first;   // in reading order
};

/// Two straight pictures of one size.
Difference ComparePictures(const QImage& expected, const QImage& actual);

/// `actual`, darkened, with the pixels that differ in red.
QImage DifferencePicture(const QImage& expected, const QImage& actual);

} // namespace replay
