#include "whole/report.h"

#include "host/engine_loop.h"
#include "host/frame_presenter.h"
#include "host/main_window.h"
#include "host/platform_setup.h"
#include "host/work_thread.h"
#include "pages/page_switch.h"
#include "store/system_words.h"
#include "store/variable_value.h"
#include "whole/start_watch.h"
#include "yardstick.h"

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <sys/resource.h>

namespace report {
namespace {

using namespace std::chrono_literals;

constexpr int Starts = 9;
constexpr auto Settling = 2s;
constexpr auto Watched = 6s;
constexpr double MostFrame = 9, MostUnchanged = 0.05, MostStart = 1.5, MostIdle = 2, MostAnimated = 15;

double processorSeconds() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

// --- What a child does, and tells its parent on standard output ---

/// A window of its own path files with an image in it.
struct Window {
    Window(int& argc, char** argv) : application(argc, argv), window(PathFiles(files.path())) {
        qInstallMessageHandler([](auto, auto&, auto&) {});
        window.show();
    }

    struct Platform {
        Platform() { SetUpPlatform(); }
    } platform; // comes before the application
    QApplication application;
    QTemporaryDir files;
    MainWindow window;
};

int panelStart(int argc, char** argv) {
    Window shown(argc, argv);
    const StartWatch watch(*shown.window.findChild<QLabel*>("label_Show"));
    QTimer::singleShot(0, [&] { shown.window.openImage(argv[2]); });
    return QApplication::exec();
}

/// Shows a page for a while and tells the share of a core that it took.
int panelShare(int argc, char** argv) {
    Window shown(argc, argv);
    double started = 0, used = 0;
    shown.window.openImage(argv[2]);
    QTimer::singleShot(Settling / 2, [&] {
        panel::WriteVar(panel::word::Page, QString::fromLocal8Bit(argv[3]), panel::value_type::Short, 0);
    });
    QTimer::singleShot(Settling, [&] {
        started = now();
        used = processorSeconds();
    });
    QTimer::singleShot(Settling + Watched, [&] {
        std::printf("%.6f %.3f\n", (processorSeconds() - used) / (now() - started), peakMebibytes());
        QCoreApplication::quit();
    });
    return QApplication::exec();
}

/// Frames as the window shows them, in processor time as multiples of a memcpy.
int frames(int argc, char** argv) {
    QApplication application(argc, argv);
    QLabel label;
    FramePresenter presenter(label);
    QImage pictures[2];
    for (QImage& picture : pictures) {
        picture = QImage(800, 480, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::darkBlue);
    }
    constexpr int runs = 200;
    const auto perRun = [](const auto& job) {
        const double start = processorSeconds();
        for (int run = 0; run < runs; ++run) job(run);
        return (processorSeconds() - start) / runs;
    };
    const std::vector<char> from(yardstick::SurfaceBytes, 1);
    std::vector<char> to(from.size());
    const double copy = perRun([&](int) {
        std::memcpy(to.data(), from.data(), to.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    });
    const double changed = perRun([&](int run) { presenter.show(pictures[run % 2], 0x40, 1.0F); });
    const double unchanged = perRun([&](int) { presenter.show(pictures[0], 0x40, 1.0F); });
    std::printf("%.6f %.6f\n", changed / copy, unchanged / copy);
    return 0;
}

// --- What the parent makes of it ---

struct Told {
    double first = 0, second = 0;
};

Told ask(const QStringList& arguments, const QString& program = QCoreApplication::applicationFilePath()) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(program, arguments);
    child.waitForFinished(60000);
    const QList<QByteArray> words = child.readAllStandardOutput().simplified().split(' ');
    return {.first = words.value(0).toDouble(), .second = words.value(1).toDouble()};
}

struct Start {
    double seconds, mebibytes;
};

Start startOf(const QString& program, const QStringList& arguments) {
    const double before = now();
    const Told told = ask(arguments, program);
    return {.seconds = told.first - before, .mebibytes = told.second};
}

} // namespace

std::function<int(int, char**)> ChildOf(const std::string& name) {
    if (name == "--panel-start") return panelStart;
    if (name == "--panel-share") return panelShare;
    if (name == "--frames") return frames;
    return {};
}

Lines WindowCosts(const Demo& demo) {
    const QString self = QCoreApplication::applicationFilePath();
    std::vector<double> plainSeconds, panelSeconds, plainMemory, panelMemory;
    for (int i = 0; i < Starts; ++i) {
        const Start plain = startOf(self + "-plain", {});
        const Start panel = startOf(self, {"--panel-start", demo.image});
        plainSeconds.push_back(plain.seconds);
        panelSeconds.push_back(panel.seconds);
        plainMemory.push_back(plain.mebibytes);
        panelMemory.push_back(panel.mebibytes);
    }
    const auto share = [&](int page) { return ask({"--panel-share", demo.image, QString::number(page)}); };
    const Told idle = share(demo.calmestPage), animated = share(demo.busiestPage), frame = ask({"--frames"});
    using yardstick::median;
    return {{.what = "frame in the window", .figure = frame.first, .aim = MostFrame},
            {.what = "frame that has not changed", .figure = frame.second, .aim = MostUnchanged},
            {.what = "start to first frame",
             .figure = median(panelSeconds) / median(plainSeconds),
             .aim = MostStart,
             .unit = "x plain program"},
            {.what = "window on the calmest page",
             .figure = 100 * idle.first,
             .aim = MostIdle,
             .unit = "% of a core"},
            {.what = "window on the busiest page",
             .figure = 100 * animated.first,
             .aim = MostAnimated,
             .unit = "% of a core"},
            {.what = "peak memory at the first frame",
             .figure = median(panelMemory) / median(plainMemory),
             .unit = "x plain program"},
            {.what = "peak memory after the busiest page", .figure = animated.second, .unit = "MiB"}};
}

} // namespace report
