#include "inspector/mouse_buttons.h"

#ifdef VENDARO_X11

#include <QX11Info>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

bool TitleBarReleaseIsHidden() { return QX11Info::isPlatformX11(); }

bool LeftButtonIsDown() {
    xcb_connection_t* server = QX11Info::connection();
    const auto query = xcb_query_pointer(server, static_cast<xcb_window_t>(QX11Info::appRootWindow()));
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> pointer(
        xcb_query_pointer_reply(server, query, nullptr), &std::free);
    return pointer && (pointer->mask & XCB_BUTTON_MASK_1) != 0;
}

#else

bool TitleBarReleaseIsHidden() { return false; }
bool LeftButtonIsDown() { return false; }

#endif
