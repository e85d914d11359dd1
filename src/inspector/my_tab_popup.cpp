#include "inspector/my_tab_popup.h"

#include "inspector/mouse_buttons.h"

#include <QCursor>
#include <QMouseEvent>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

constexpr auto ReleasePollPeriod = 30ms;

} // namespace

MyTabPopup::MyTabPopup(QWidget* parent) : QDialog(parent), openedAt_(QCursor::pos()) {
    titleDrag_.setInterval(ReleasePollPeriod);
    connect(&titleDrag_, &QTimer::timeout, this, &MyTabPopup::lookForRelease);
}

void MyTabPopup::SetContentWidget(QWidget* page) {
    setWindowFlags(Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    if (!page) return;
    contentWidget = page;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(page);
}

bool MyTabPopup::event(QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease
        || event->type() == QEvent::NonClientAreaMouseButtonRelease) {
        const auto* release = static_cast<QMouseEvent*>(event);
        if (release->button() == Qt::LeftButton) emit dragRelease(release->screenPos().toPoint());
    }
    return QDialog::event(event);
}

void MyTabPopup::closeEvent(QCloseEvent*) { emit closeEmulation(); }

/// Of a drag by the title bar the window may only hear that it has moved, from some window managers all the
/// way, from others at the end.
void MyTabPopup::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (TitleBarReleaseIsHidden()) titleDrag_.start();
}

void MyTabPopup::lookForRelease() {
    if (LeftButtonIsDown()) return;
    titleDrag_.stop();
    if (QCursor::pos() == openedAt_) return; // moved by the program
    if (isOnTitleBar(QCursor::pos())) emit dragRelease(QCursor::pos());
}

bool MyTabPopup::isOnTitleBar(const QPoint& globalPos) const {
    return frameGeometry().contains(globalPos) && globalPos.y() < geometry().top();
}
