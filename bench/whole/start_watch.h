// When a program's first picture is on its window, and what it took until then.
#pragma once

#include <QEvent>
#include <QLabel>
#include <QPixmap>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

namespace report {

/// Seconds on a clock that all processes share.
inline double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

inline double peakMebibytes() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<double>(used.ru_maxrss) / 1024;
}

/// Ends the program when a label has painted another picture than it has now, and tells the time and the
/// memory on standard output.
class StartWatch : public QObject {
public:
    explicit StartWatch(QLabel& label) : label_(label), first_(picture()) { label.installEventFilter(this); }

private:
    qint64 picture() const { return label_.pixmap(Qt::ReturnByValue).cacheKey(); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        // The filter sees the event before the label does.
        if (event->type() == QEvent::Paint && picture() != first_)
            QTimer::singleShot(0, this, &StartWatch::tell);
        return QObject::eventFilter(watched, event);
    }
    void tell() {
        std::printf("%.6f %.3f\n", now(), peakMebibytes());
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    }

    QLabel& label_;
    qint64 first_;
};

} // namespace report
