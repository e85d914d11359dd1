// A panel with touch widgets, and a finger on it.
#pragma once

#include "imagekit/touch_controls.h"
#include "panel_test.h"

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

    imagekit::ImageBuilder image;
};

} // namespace panel
