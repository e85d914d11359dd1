#include "inspector/my_tab_bar.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QPointer>

MyTabBar::MyTabBar(QWidget* parent) : QTabBar(parent) { setAttribute(Qt::WA_StyledBackground); }

bool MyTabBar::holds(const QPoint& globalPos) const {
    return contentsRect().contains(mapFromGlobal(globalPos));
}

void MyTabBar::mousePressEvent(QMouseEvent* event) {
    QTabBar::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && currentIndex() >= 0) pressed = true;
}

void MyTabBar::mouseMoveEvent(QMouseEvent* event) {
    QTabBar::mouseMoveEvent(event);
    if (!pressed || dragOut || event->buttons() == Qt::NoButton) return;
    if (contentsRect().contains(event->localPos().toPoint())) return;
    dragOut = true;
    const QPointer<MyTabBar> alive = this; // the drag runs events of its own
    emit beginDragOut(currentIndex());
    if (!alive) return;
    // The drag has swallowed the release, without which the bar would go on moving the tab.
    QCoreApplication::postEvent(this,
                                new QMouseEvent(QEvent::MouseButtonRelease, mapFromGlobal(QCursor::pos()),
                                                Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
}

void MyTabBar::mouseReleaseEvent(QMouseEvent* event) {
    QTabBar::mouseReleaseEvent(event);
    pressed = false;
    dragOut = false;
}
