// Pictures that were looked at and found right, kept beside the tests that make them.
#pragma once

#include <QFileInfo>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

/// Holds a picture against `name`, a PNG file below tests/. One that differs is left in the working
/// directory; with VENDARO_BLESS set it takes the place of the golden one instead, to be looked at before it
/// is committed.
inline testing::AssertionResult EqualsGolden(const QImage& picture, const QString& name) {
    const QImage actual = picture.convertToFormat(QImage::Format_ARGB32);
    const QString golden = QStringLiteral(TESTS_DIRECTORY "/") + name;
    if (qEnvironmentVariableIsSet("VENDARO_BLESS")) actual.save(golden, "PNG");
    if (!actual.isNull() && actual == QImage(golden).convertToFormat(QImage::Format_ARGB32))
        return testing::AssertionSuccess();
    const QString kept = "actual-" + QFileInfo(name).fileName();
    actual.save(kept, "PNG");
    return testing::AssertionFailure() << kept.toStdString() << " is not " << golden.toStdString();
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
