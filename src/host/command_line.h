// What the program is asked for on its command line.
#pragma once

#include <QSize>
#include <QString>

class QCoreApplication;

struct CommandLine {
    QString image;      // absolute path of the image to load; empty: the one of the start path file
    QString screenshot; // the PNG to write; empty: an ordinary run
    int afterMs = 1500; // from the start, or from the load of the image, to the screenshot
    QString record;     // the script to write; empty: none
    bool watch = false; // the image is loaded again when it changes
    int zoom = 100;     // percent, as MainWindow::zoomOf() takes it
    QSize size;         // of the window; invalid: its own
    bool maximised = false;
};

/// Whether the arguments only ask for a text, which can be given where there is no display.
bool AsksForTextOnly(int argc, char** argv);

/// Reads the arguments of the application. Answers --help and --version, and refuses what is no command line,
/// by ending the program.
CommandLine ReadCommandLine(const QCoreApplication& application);
