#include "inspector/my_tab_widget.h"

#include "inspector/my_tab_bar.h"
#include "inspector/my_tab_popup.h"

#include <QCursor>
#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QShortcut>

namespace {

constexpr int TitleHeight = 30; // px, of the picture that is dragged
constexpr int FrameWidth = 1;
constexpr QPoint DragHotSpot(10, 0);
constexpr QPoint PopupOffset(10, 10); // from the popup's corner to the cursor

/// The page as a window, under the cursor while it is dragged.
QPixmap pictureOf(QWidget& page) {
    const QRect window(QPoint(), page.size() + QSize(2 * FrameWidth, TitleHeight + FrameWidth));
    QPixmap picture(window.size() * page.devicePixelRatioF());
    picture.setDevicePixelRatio(page.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRect title(0, 0, window.width(), TitleHeight);
    painter.fillRect(title, Qt::white);
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("  ") + page.windowTitle());
    painter.drawRect(window.adjusted(0, 0, -1, -1));
    page.render(&painter, QPoint(FrameWidth, TitleHeight), QRegion(),
                QWidget::DrawWindowBackground | QWidget::DrawChildren);
    return picture;
}

} // namespace

MyTabWidget::MyTabWidget(QWidget* parent) : QTabWidget(parent), bar_(new MyTabBar(this)) {
    setAttribute(Qt::WA_StyledBackground);
    setTabBar(bar_);
    connect(bar_, &MyTabBar::beginDragOut, this, &MyTabWidget::dragOut);
    connect(bar_, &QTabBar::tabCloseRequested, this, &MyTabWidget::RemovePageAt);
    auto* pullOut = new QShortcut(QKeySequence(QStringLiteral("Ctrl+D")), this);
    connect(pullOut, &QShortcut::activated, this, [this] {
        if (QWidget* page = loosePage(currentIndex())) PopOutPage(page);
    });
}

int MyTabWidget::AddPage(QWidget* page) {
    if (!page) return -1;
    page->setAttribute(Qt::WA_DeleteOnClose);
    const int index = addTab(page, page->windowTitle());
    setCurrentIndex(index);
    return index;
}

QWidget* MyTabWidget::loosePage(int index) const {
    QWidget* page = widget(index);
    return fixedPages.contains(page) ? nullptr : page;
}

void MyTabWidget::RemovePageAt(int index) {
    QWidget* page = loosePage(index);
    if (!page) return;
    removeTab(index);
    page->close();
}

void MyTabWidget::MarkFixedPage(int index) {
    QWidget* page = loosePage(index);
    if (!page) return;
    fixedPages += page;
    bar_->setTabButton(index, QTabBar::RightSide, nullptr);
}

void MyTabWidget::showEvent(QShowEvent* event) {
    QTabWidget::showEvent(event);
    for (int index = 0; index < count(); ++index) widget(index)->setAttribute(Qt::WA_DeleteOnClose);
}

// --- Out and back ---

void MyTabWidget::dragOut(int index) {
    const QPointer<QWidget> page = loosePage(index);
    if (!page) return;
    auto* drag = new QDrag(bar_);
    drag->setMimeData(new QMimeData);
    drag->setPixmap(pictureOf(*page));
    drag->setHotSpot(DragHotSpot);
    connect(drag, &QObject::destroyed, this, [this, page] {
        if (page && !bar_->holds(QCursor::pos())) PopOutPage(page);
    });
    drag->exec(Qt::MoveAction);
}

void MyTabWidget::PopOutPage(QWidget* page) {
    if (page) removeTab(indexOf(page));
    auto* popup = new MyTabPopup(this);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->SetContentWidget(page);
    if (page) {
        popup->setWindowTitle(page->windowTitle());
        popup->resize(page->size());
    }
    popup->move(QCursor::pos() - PopupOffset);
    connect(popup, &MyTabPopup::dragRelease, this, [this, popup](const QPoint& globalPos) {
        if (!bar_->holds(globalPos)) return;
        dock(*popup);
        popup->close();
    });
    connect(popup, &MyTabPopup::closeEmulation, this, [this, popup] { dock(*popup); });
    popup->show();
    if (page) page->show();
    popup->activateWindow();
    popup->setFocus(Qt::ActiveWindowFocusReason);
}

void MyTabWidget::dock(MyTabPopup& popup) {
    AddPage(popup.ContentWidget());
    popup.disconnect(this);
}
