// SPDX-License-Identifier: GPL-3.0-or-later
// Who holds the keyboard of a window: events as the X server sends them.
#include "qt/session/grab_watch.h"

#include <QWidget>

#include <xcb/xproto.h>

namespace tarvokol {
namespace {

class GrabWatchTest : public testing::Test {
  protected:
    GrabWatchTest() {
        Window.winId();
        QObject::connect(&Watch, &GrabWatch::Released, [this] { ++Released; });
    }

    void Send(int kind, int mode, const char* type = "xcb_generic_event_t") {
        SendTo(Window.winId(), kind, mode, type);
    }
    void SendTo(WId window, int kind, int mode, const char* type = "xcb_generic_event_t") {
        xcb_focus_in_event_t event{};
        event.response_type = static_cast<uint8_t>(kind);
        event.event = static_cast<xcb_window_t>(window);
        event.mode = static_cast<uint8_t>(mode);
        EXPECT_FALSE(Watch.nativeEventFilter(type, &event, nullptr));  // the toolkit has it, too
    }

    QWidget Window;
    GrabWatch Watch{Window};
    int Released = 0;
};

TEST_F(GrabWatchTest, AGrabHoldsTheWindowUntilItsEnd) {
    EXPECT_FALSE(Watch.IsHeld());
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    EXPECT_TRUE(Watch.IsHeld());
    EXPECT_EQ(Released, 0);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    EXPECT_FALSE(Watch.IsHeld());
    EXPECT_EQ(Released, 1);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB);
    EXPECT_EQ(Released, 1);
}

// Either of both may come as the event of the other kind, and as one that a program has sent.
TEST_F(GrabWatchTest, BothKindsOfFocusEventsCount) {
    Send(XCB_FOCUS_IN | 0x80, XCB_NOTIFY_MODE_GRAB);
    EXPECT_TRUE(Watch.IsHeld());
    Send(XCB_FOCUS_OUT | 0x80, XCB_NOTIFY_MODE_UNGRAB);
    EXPECT_FALSE(Watch.IsHeld());
}

TEST_F(GrabWatchTest, OtherEventsAndWindowsDoNotCount) {
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_NORMAL);
    SendTo(Window.winId() + 1, XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Send(XCB_KEY_PRESS, XCB_NOTIFY_MODE_GRAB);
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB, "windows_generic_MSG");
    EXPECT_FALSE(Watch.IsHeld());
    Send(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB);
    Send(XCB_FOCUS_IN, XCB_NOTIFY_MODE_NORMAL);
    EXPECT_TRUE(Watch.IsHeld());
    EXPECT_EQ(Released, 0);
}

// The application hands out every event of the system.
TEST(GrabWatchFilter, StandsAmongTheApplicationsAsLongAsItLives) {
    QWidget window;
    const WId id = window.winId();
    xcb_focus_in_event_t event{};
    event.response_type = XCB_FOCUS_OUT;
    event.event = static_cast<xcb_window_t>(id);
    event.mode = XCB_NOTIFY_MODE_GRAB;
    qintptr result = 0;
    const auto send = [&] {
        QCoreApplication::eventDispatcher()->filterNativeEvent("xcb_generic_event_t", &event, &result);
    };
    auto watch = std::make_unique<GrabWatch>(window);
    send();
    EXPECT_TRUE(watch->IsHeld());
    watch.reset();
    send();
}

}  // namespace
}  // namespace tarvokol
