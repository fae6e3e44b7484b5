// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting in tests: for a state and never for a time, so that no machine is too busy for it.
#pragma once

#include <QWidget>
#include <QtTest>
#include <functional>

namespace tarvokol {

// What has not come after this many milliseconds does not come.
inline constexpr int kPatienceMilliseconds = 60000;

// True once the condition holds; events run meanwhile.
inline bool WaitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, kPatienceMilliseconds);
}

// The active window itself: one that another stands above is none, and keys do not reach it.
inline bool WaitUntilActive(const QWidget& window) {
    return WaitUntil([&window] { return window.isActiveWindow(); });
}

inline bool WaitUntilExposed(QWidget& window) {
    return QTest::qWaitForWindowExposed(&window, kPatienceMilliseconds);
}

}  // namespace tarvokol
