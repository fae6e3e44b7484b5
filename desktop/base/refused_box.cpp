// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/refused_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTabWidget>
#include <QTimer>

namespace tarvokol {
namespace {

// Keys that stand for themselves in no control: the form answers them, or they go with others.
bool IsForTheForm(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
        case Qt::Key_F1:
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
            return true;
        default:
            return false;
    }
}

void ShowPageOf(QWidget& control) {
    for (QWidget* page = &control; page != nullptr; page = page->parentWidget()) {
        // The pages stand in a stack of the tabs.
        QWidget* stack = page->parentWidget();
        auto* tabs = stack != nullptr ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
        if (tabs != nullptr && tabs->indexOf(page) >= 0) tabs->setCurrentIndex(tabs->indexOf(page));
    }
}

// Holds the focus for a control that does not show, until its first key or until the user moves on.
class RefusedFocus : public QObject {
  public:
    explicit RefusedFocus(QWidget& control) : QObject(&control), control_(&control) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn)
            FocusIn(watched, static_cast<QFocusEvent*>(event)->reason());
        else if (event->type() == QEvent::KeyPress && watched == control_)
            KeyPress(static_cast<QKeyEvent*>(event)->key());
        return false;
    }

  private:
    void FocusIn(QObject* watched, Qt::FocusReason reason) {
        const auto* gained = qobject_cast<QWidget*>(watched);
        if (gained == nullptr || gained == control_ || gained->window() != control_->window()) return;
        if (reason == Qt::ActiveWindowFocusReason)
            QTimer::singleShot(0, this, [this] { control_->setFocus(); });
        else
            End();
    }

    void KeyPress(int key) {
        if (IsForTheForm(key)) return;
        End();
        ShowPageOf(*control_);
        control_->setFocus();
    }

    void End() {
        qApp->removeEventFilter(this);
        deleteLater();
    }

    QWidget* control_;  // its parent
};

}  // namespace

void FocusRefused(QWidget& control) {
    control.setFocus();
    if (control.window()->isVisible() && !control.isVisible()) new RefusedFocus(control);
}

}  // namespace tarvokol
