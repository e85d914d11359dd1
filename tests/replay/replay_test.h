// A panel of 64 x 48 pixels with a red, a green and a blue page, driven by scripts.
#pragma once

#include "replay/runner.h"
#include "temporary_files.h"

#include <sstream>
#include <string>

class ReplayTest : public ::testing::Test, protected TemporaryFiles {
protected:
    static constexpr int width = 64;
    static constexpr int height = 48;

    static imagekit::ImageBuilder colouredPages(imagekit::PanelConfig config = {}) {
        config.Width = width;
        config.Height = height;
        config.ColourMode = 1;
        imagekit::ImageBuilder image(config);
        for (const QColor& colour : {QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255)})
            image.addPage(imagekit::Solid{.Width = width, .Height = height, .Colour = colour});
        return image;
    }

    QString writeImage(const imagekit::ImageBuilder& image, const char* name = "panel.bin") const {
        image.write(path(name));
        return path(name);
    }
    void load(const imagekit::ImageBuilder& image) { bench.panel.load(writeImage(image)); }

    /// Carries out a script; {} in it stands for the test's directory.
    replay::Outcome run(QString script) {
        answerStream.str("");
        diagnosticStream.str("");
        bench.report = {"test", answerStream, diagnosticStream};
        std::istringstream input(script.replace("{}", directory_.path()).toStdString());
        return replay::RunLines(input, bench);
    }
    /// What the script answers; a script that does not pass is a failure of the test.
    std::string answersTo(const QString& script) {
        EXPECT_EQ(run(script), replay::Outcome::Passed) << diagnostics();
        return answerStream.str();
    }
    /// What was said of the last script, with {} for the test's directory.
    std::string diagnostics() const {
        return QString::fromStdString(diagnosticStream.str()).replace(directory_.path(), "{}").toStdString();
    }

    std::ostringstream answerStream;
    std::ostringstream diagnosticStream;
    replay::Bench bench{.panel = {}, .report = {"test", answerStream, diagnosticStream}, .pictures = {}};
};
