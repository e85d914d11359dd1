// Pictures that were looked at and found right, kept beside the tests that make them.
#pragma once

#include <QFileInfo>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <limits>

inline int DifferentPixels(const QImage& a, const QImage& b) {
    if (a.size() != b.size() || a.isNull()) return std::numeric_limits<int>::max();
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

/// Holds a picture against `name`, a PNG file below tests/; as many as `most` pixels may differ where they
/// come from sines. One that is not the same is left in the working directory. With VENDARO_BLESS set it
/// takes the place of the golden one instead, to be looked at before it is committed.
inline testing::AssertionResult EqualsGolden(const QImage& picture, const QString& name, int most = 0) {
    const QImage actual = picture.convertToFormat(QImage::Format_ARGB32);
    const QString golden = QStringLiteral(TESTS_DIRECTORY "/") + name;
    if (qEnvironmentVariableIsSet("VENDARO_BLESS")) actual.save(golden, "PNG");
    const int different = DifferentPixels(actual, QImage(golden).convertToFormat(QImage::Format_ARGB32));
    if (different <= most) return testing::AssertionSuccess();
    const QString kept = "actual-" + QFileInfo(name).fileName();
    actual.save(kept, "PNG");
    return testing::AssertionFailure()
           << different << " pixels of " << kept.toStdString() << " differ from " << golden.toStdString();
}

/// Pictures of one size side by side, in rows.
class Sheet {
public:
    Sheet(QSize cell, int columns, int rows)
        : cell_(cell), columns_(columns),
          picture_(cell.width() * columns, cell.height() * rows, QImage::Format_ARGB32) {
        picture_.fill(Qt::black);
    }
    void add(const QImage& picture) {
        const QPoint at(next_ % columns_ * cell_.width(), next_ / columns_ * cell_.height());
        QPainter painter(&picture_);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(at, picture, QRect(QPoint(), cell_));
        ++next_;
    }
    const QImage& picture() const { return picture_; }

private:
    QSize cell_;
    int columns_, next_ = 0;
    QImage picture_;
};
