// The least that any program with a picture in a window costs: the yardstick of a start.
#include "whole/start_watch.h"

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLabel label;
    const report::StartWatch watch(label);
    QImage picture(800, 480, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::darkBlue);
    label.setPixmap(QPixmap::fromImage(picture));
    label.show();
    return QApplication::exec();
}
