// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/grab_watch.h"

#include <QCoreApplication>
#include <QWidget>

#include <xcb/xproto.h>

namespace tarvokol {
namespace {

constexpr uint8_t kSentByAProgram = 0x80;

}  // namespace

GrabWatch::GrabWatch(QWidget& window) : window_(window) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

GrabWatch::~GrabWatch() {
    if (QCoreApplication::instance() != nullptr) QCoreApplication::instance()->removeNativeEventFilter(this);
}

// A grab takes the focus from the window and its end gives it back; both are marked as such. The toolkit
// passes them over.
bool GrabWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t") return false;
    const auto& event = *static_cast<const xcb_focus_in_event_t*>(message);
    const int kind = event.response_type & ~kSentByAProgram;
    if (kind != XCB_FOCUS_IN && kind != XCB_FOCUS_OUT) return false;
    if (event.event != window_.internalWinId()) return false;
    const bool was_held = held_;
    if (event.mode == XCB_NOTIFY_MODE_GRAB) held_ = true;
    if (event.mode == XCB_NOTIFY_MODE_UNGRAB) held_ = false;
    if (was_held && !held_) emit Released();
    return false;
}

}  // namespace tarvokol
