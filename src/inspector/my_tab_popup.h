// The window that a page lives in while it is outside its tab widget.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>

class MyTabPopup : public QDialog {
    Q_OBJECT

public:
    explicit MyTabPopup(QWidget* parent = nullptr);

    /// Takes the page in. Once.
    void SetContentWidget(QWidget* page);
    QWidget* ContentWidget() const { return contentWidget; }

    /// Escape closes the window as its close button does. A dialog that is merely left would take its page
    /// along.
    void reject() override { close(); }

signals:
    /// The left button has been released on the window, or on its title bar.
    void dragRelease(const QPoint& globalPos);
    /// The window closes.
    void closeEmulation();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void lookForRelease();
    bool isOnTitleBar(const QPoint& globalPos) const;

    QPointer<QWidget> contentWidget; // a child
    QTimer titleDrag_;               // runs from a move of the window until the button is up
    QPoint openedAt_;                // where the pointer was
};
