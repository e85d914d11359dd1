// Tabs that can be pulled out of their bar with the mouse. The page then lives in a window of its own, until
// that window is closed or released over the bar.
#pragma once

#include <QPointer>
#include <QTabWidget>
#include <QVector>

class MyTabBar;
class MyTabPopup;

/// A page is in a tab or in one popup, never in both; either way it is a child and ends with this widget.
class MyTabWidget : public QTabWidget {
    Q_OBJECT

public:
    explicit MyTabWidget(QWidget* parent = nullptr);

    /// Adds the page as the last tab, under its window title, and makes it the current one. Its index, or -1
    /// for none. A page is deleted when it is closed.
    int AddPage(QWidget* page);
    /// Closes a page that is not fixed, which deletes it.
    void RemovePageAt(int index);
    /// A fixed page can neither be closed nor pulled out.
    void MarkFixedPage(int index);
    /// Moves a page into a window of its own at the mouse cursor.
    void PopOutPage(QWidget* page);

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// The page of that tab, or null for one that does not exist or is fixed.
    QWidget* loosePage(int index) const;
    void dragOut(int index);
    void dock(MyTabPopup& popup);

    MyTabBar* bar_;
    QVector<QPointer<QWidget>> fixedPages;
};
