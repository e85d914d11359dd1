// A directory of files that lives as long as a test.
#pragma once

#include "imagekit/image_builder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class TemporaryFiles {
protected:
    QString path(const QString& name) const { return directory_.filePath(name); }

    QString writeFile(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        QDir().mkpath(QFileInfo(file).path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }

    QByteArray readFile(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    /// An image of one page in one colour.
    QString writeImage(const QString& name, const QColor& colour, imagekit::PanelConfig config = {}) const {
        config.ColourMode = 1;
        imagekit::ImageBuilder image(config);
        image.addPage(imagekit::Solid{.Width = config.Width, .Height = config.Height, .Colour = colour});
        return writeFile(name, image.build());
    }

    QTemporaryDir directory_;
};
