// The bar of the tear-off tabs: sees when a tab is pulled out of it.
#pragma once

#include <QTabBar>

class MyTabBar : public QTabBar {
    Q_OBJECT

public:
    explicit MyTabBar(QWidget* parent = nullptr);

    /// Whether a place on the screen lies on the bar.
    bool holds(const QPoint& globalPos) const;

signals:
    /// The pointer has left the bar with the current tab. Once a press.
    void beginDragOut(int index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool pressed = false;
    bool dragOut = false; // beginDragOut has been emitted in this press
};
