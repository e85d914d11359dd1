// A panel with touch widgets, and a finger on it.
#pragma once

#include "imagekit/touch_controls.h"
#include "panel_test.h"
#include "widgets/touch/sliding_list.h"

namespace panel {

class TouchTest : public PanelTest {
protected:
    TouchTest() : image(Small) {}

    std::uint16_t addPicture(QColor colour, int width = 10, int height = 10) {
        return image.addPicture(Filled(width, height, colour));
    }
    imagekit::Page& addPage(QColor colour = Qt::gray) { return image.addPage(PlainPage(Small, colour)); }

    void start() {
        ASSERT_EQ(boot(image), StartResult::Running);
        cycles(1);
        TakeSentFrames();
    }
    void press(int x, int y) {
        PressPointer({x, y});
        cycles(1);
    }
    void drag(int x, int y) {
        MovePointer({x, y});
        cycles(1);
    }
    void letGo() {
        ReleasePointer();
        cycles(1);
    }
    void tap(int x, int y) {
        press(x, y);
        letGo();
    }
    void virtualKey(std::uint16_t code) {
        apply(word::VirtualKey, code);
        cycles(1);
    }
    /// What a list brings about that shows its picture in a window on the panel.
    static void showList(QRect window, QSize picture, std::uint8_t mode, int shown) {
        SlideListActive = 1;
        ListWindow = window;
        ListW = static_cast<std::uint16_t>(picture.width());
        ListH = static_cast<std::uint16_t>(picture.height());
        ListMode = mode;
        ListShown = shown;
    }

    imagekit::ImageBuilder image;
};

} // namespace panel
