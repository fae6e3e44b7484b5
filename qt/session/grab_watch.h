// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class QWidget;

namespace tarvokol {

// Tells when somebody else takes the keyboard of a window for a while and gives it back: so does the window
// manager while an edge of the window is dragged. A desktop that tells nothing of it (anything but X11) never
// holds a window.
class GrabWatch : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

  public:
    explicit GrabWatch(QWidget& window);
    ~GrabWatch() override;

    bool IsHeld() const { return held_; }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  signals:
    void Released();

  private:
    const QWidget& window_;
    bool held_ = false;
};

}  // namespace tarvokol
