// The tab "Information": path, size and settings of the loaded image, and the log below them.
#pragma once

#include <QString>

namespace Ui {
class MainWindow;
}

/// Fills the labels of the window's form. Main thread.
class InformationPanel {
public:
    explicit InformationPanel(Ui::MainWindow& form) : form_(form) {}

    void showPath(const QString& path);
    /// File size and settings of the loaded image. Of an image too short to be described only the size is
    /// shown.
    void showImage();
    /// Takes back what showImage() filled in.
    void clearImage();

    /// Writes "Loading..." to the emptied log.
    void logLoading();
    void clearLog();

private:
    void showSettings();

    Ui::MainWindow& form_;
};
