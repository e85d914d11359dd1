// make-demo: paints the demo project and writes it as demo.bin, with the tables of its widgets beside it, and
// a second one that plays music and video into the folder "media".

#include "demo/media_project.h"
#include "demo/project.h"

#include "imagekit/image_error.h"
#include "imagekit/widget_description.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>

#include <cstdio>

namespace {

constexpr int BadUsage = 2;

/// Makes the directory where there is none.
QDir outputDirectory(const QString& path) {
    if (!QDir().mkpath(path)) throw imagekit::ImageError(path.toStdString(), "this directory cannot be made");
    return QDir(path);
}

void writePictures(const std::vector<demo::PaintedPage>& pages, const QDir& directory) {
    for (const demo::PaintedPage& page : pages) {
        const QString path = directory.filePath(QString(page.name) + ".png");
        if (!page.image.save(path)) throw imagekit::ImageError(path.toStdString(), "cannot be written");
    }
}

void makeDemo(const QString& output, const QString& pictures) {
    const std::vector<demo::PaintedPage> pages = demo::PaintPages();
    if (!pictures.isEmpty()) writePictures(pages, outputDirectory(pictures));
    const imagekit::ImageBuilder image = demo::BuildProject(pages);
    const QDir directory = outputDirectory(output);
    image.write(directory.filePath("demo.bin"));
    imagekit::WriteWidgetTables(image, directory.path());
    demo::WriteMediaProject(outputDirectory(directory.filePath("media")));
}

} // namespace

int main(int argc, char** argv) {
    // Painting text needs the toolkit's fonts but no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription("Paints the demo projects and writes them as OUTPUT_DIR/demo.bin and "
                                     "OUTPUT_DIR/media/media.bin.");
    parser.addHelpOption();
    parser.addPositionalArgument("OUTPUT_DIR", "Directory of the image; made if there is none.");
    const QCommandLineOption pictures(
        "pages", "Also write the painted picture of every page as a PNG file into <DIR>.", "DIR");
    parser.addOption(pictures);
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        std::fputs(qPrintable(parser.helpText()), stderr);
        return BadUsage;
    }
    try {
        makeDemo(parser.positionalArguments().constFirst(), parser.value(pictures));
    } catch (const imagekit::ImageError& error) {
        std::fprintf(stderr, "make-demo: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
