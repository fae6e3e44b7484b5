// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/form_services.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QTextEdit>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <utility>

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kMissingElement = 340;

// What the desktop puts around a window, as the last one had it.
QMargins KnownFrame;

// What the desktop has put around the form; nothing before it shows.
QMargins FrameOf(const QWidget& form) {
    return form.windowHandle() != nullptr ? form.windowHandle()->frameMargins() : QMargins();
}

// Letters for which the toolkit makes a text box wide enough.
constexpr int kHintedLetters = 17;

// True if the focus comes or goes with the whole window, or for a menu.
bool IsPassing(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

// Selects a text box's whole text when it gets the focus. A click into the box puts the caret down after the
// focus came, so the selection is made once more when the button is released, unless the user has dragged one
// of his own. A box that lost the focus to a message, a menu or another program gets it back as it was.
class FocusSelector : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        // A box that goes with its form loses the focus when no text box is left of it.
        auto* box = qobject_cast<QLineEdit*>(watched);
        if (box == nullptr) return false;
        switch (event->type()) {
            case QEvent::FocusIn:
                FocusIn(*box, static_cast<QFocusEvent*>(event)->reason());
                break;
            case QEvent::FocusOut:
                left_in_passing_ = IsPassing(static_cast<QFocusEvent*>(event)->reason());
                break;
            case QEvent::MouseButtonRelease:
                if (clicked_ && !box->hasSelectedText()) SelectWhole(*box);
                clicked_ = false;
                break;
            default:
                break;
        }
        return false;
    }

  private:
    void FocusIn(QLineEdit& box, Qt::FocusReason reason) {
        if (!left_in_passing_ || !IsPassing(reason)) SelectWhole(box);
        clicked_ = reason == Qt::MouseFocusReason;
    }

    bool clicked_ = false;
    bool left_in_passing_ = false;
};

// Shows the head of a text that somebody else than the user put into a box, and of every text that is left.
class HeadShower : public QObject {
  public:
    explicit HeadShower(QLineEdit& box) : QObject(&box) {
        connect(&box, &QLineEdit::textChanged, this, [&box] {
            if (box.window()->focusWidget() != &box) box.home(false);
        });
        box.installEventFilter(this);
        if (!box.hasSelectedText()) box.home(false);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::FocusOut || IsPassing(static_cast<QFocusEvent*>(event)->reason()))
            return false;
        if (auto* box = qobject_cast<QLineEdit*>(watched)) box->home(false);
        return false;
    }
};

// Turns the pages of a form's tabs wherever in the form the keyboard is. The focus goes on to the new page, and shows.
class PageTurner : public QObject {
  public:
    PageTurner(QWidget& form, QTabWidget& tabs) : QObject(&tabs), form_(form), tabs_(tabs) {
        form.installEventFilter(this);
        tabs.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->modifiers().testFlag(Qt::ControlModifier)) return false;
        if (key->key() == Qt::Key_Tab)
            Turn(1);
        else if (key->key() == Qt::Key_Backtab)
            Turn(tabs_.count() - 1);
        else
            return false;
        return true;
    }

  private:
    void Turn(int pages) {
        tabs_.setCurrentIndex((tabs_.currentIndex() + pages) % tabs_.count());
        const QWidget* page = tabs_.currentWidget();
        QWidget* control = form_.focusWidget();
        if (control == nullptr || !page->isAncestorOf(control)) control = FirstStopOf(*page);
        if (control == nullptr) return;
        // Styles mark the focus of buttons and boxes for those who came by the Tab key alone.
        form_.window()->setAttribute(Qt::WA_KeyboardFocusChange);
        control->clearFocus();
        control->setFocus(Qt::TabFocusReason);
    }

    static QWidget* FirstStopOf(const QWidget& page) {
        for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain())
            if (page.isAncestorOf(next) && next->isVisible() && next->isEnabled() &&
                (next->focusPolicy() & Qt::TabFocus) != 0)
                return next;
        return nullptr;
    }

    QWidget& form_;
    QTabWidget& tabs_;
};

// Digits that a box shows: what it takes at the most, else those of an ordinary figure.
int DigitsShown(const QLineEdit& box) {
    constexpr int kFigure = 10;
    return std::min(kFigure, box.maxLength());
}

bool IsTabStop(const QWidget* widget) {
    return qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr;
}

void SetTabStop(QWidget& widget, bool on) {
    const int policy = widget.focusPolicy();
    widget.setFocusPolicy(static_cast<Qt::FocusPolicy>(on ? policy | Qt::TabFocus : policy & ~Qt::TabFocus));
}

}  // namespace

int CenteredOffset(int screen_extent, int form_extent) {
    return form_extent > screen_extent ? 0 : (screen_extent - form_extent) / 2;
}

void CenterForm(QWidget& form) {
    const QRect screen = form.screen()->geometry();
    const QMargins frame = FrameOf(form);
    const QSize size = form.size().grownBy(frame.isNull() ? KnownFrame : frame);
    form.move(screen.left() + CenteredOffset(screen.width(), size.width()),
              screen.top() + CenteredOffset(screen.height(), size.height()));
}

// The window manager adds a title bar, of which the style has an idea before the first window shows.
QSize RoomFor(const QWidget& form) {
    const int title_bar = form.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize frame(KnownFrame.left() + KnownFrame.right(), KnownFrame.top() + KnownFrame.bottom());
    return form.screen()->availableGeometry().size() - frame.expandedTo(QSize(0, title_bar));
}

bool NoteFrame(const QWidget& form) {
    const QMargins frame = FrameOf(form);
    return std::exchange(KnownFrame, frame) != frame;
}

void SetScreenPointer(MousePointer pointer) {
    while (QApplication::overrideCursor() != nullptr) QApplication::restoreOverrideCursor();
    if (pointer == MousePointer::Hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
}

void SelectAllText() {
    QWidget* active = QApplication::focusWidget();
    if (auto* box = qobject_cast<QLineEdit*>(active)) box->selectAll();
    if (auto* box = qobject_cast<QPlainTextEdit*>(active)) box->selectAll();
    if (auto* box = qobject_cast<QTextEdit*>(active)) box->selectAll();
}

void SelectWhole(QLineEdit& box) {
    const int length = static_cast<int>(box.text().size());
    box.setSelection(length, -length);
}

void SelectAllOnFocus(QWidget& container) {
    for (QLineEdit* box : container.findChildren<QLineEdit*>())
        box->installEventFilter(new FocusSelector(box));
}

void ShowHeadsOfTexts(QWidget& container) {
    // The inner edit of a list is typed into while the list has the focus.
    for (QLineEdit* box : container.findChildren<QLineEdit*>())
        if (box->focusProxy() == nullptr) new HeadShower(*box);
}

void WidenBoxes(QWidget& container) {
    for (QLineEdit* box : container.findChildren<QLineEdit*>()) {
        if (box->maximumWidth() == QWIDGETSIZE_MAX) continue;
        box->ensurePolished();
        const int digits = box->fontMetrics().horizontalAdvance(QString(DigitsShown(*box), '0'));
        const int around =
            box->sizeHint().width() - box->fontMetrics().horizontalAdvance('x') * kHintedLetters;
        const int width = std::max(box->maximumWidth(), digits + around);
        box->setMinimumWidth(width);
        box->setMaximumWidth(width);
    }
}

bool CheckRangeOf(QLineEdit& box, double low, double high, const std::string& label) {
    std::string field = label;
    if (CheckRange(FromQt(box.text()), low, high, field)) return true;
    box.setFocus();
    return false;
}

// The plain text would be without the difference between a blank and one that does not break.
std::string LinesOf(const QPlainTextEdit& box) {
    QString text = box.document()->toRawText();
    text.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
    return FromQt(text.replace(QChar::ParagraphSeparator, "\r\n"));
}

void FixTabStops(QTabWidget& tabs) {
    for (int page = 0; page < tabs.count(); ++page)
        for (QWidget* control : tabs.widget(page)->findChildren<QWidget*>())
            if (IsTabStop(control)) SetTabStop(*control, page == tabs.currentIndex());
}

void TurnPagesByKeys(QWidget& form) {
    const auto tabs = form.findChildren<QTabWidget*>();
    if (tabs.size() == 1) new PageTurner(form, *tabs.front());
}

void RaiseMissingElement() {
    Raise(kMissingElement);
}

void OnChoice(QRadioButton& option, QObject& listener, const std::function<void()>& chosen) {
    // A click that turns the option on has been told by then.
    auto told = std::make_shared<bool>(false);
    QObject::connect(&option, &QAbstractButton::pressed, &listener, [told] { *told = false; });
    QObject::connect(&option, &QAbstractButton::toggled, &listener, [told, chosen](bool on) {
        *told = true;
        if (on) chosen();
    });
    QObject::connect(&option, &QAbstractButton::clicked, &listener, [told, chosen] {
        if (!std::exchange(*told, false)) chosen();
    });
}

int16_t GetOptionIndex(const OptionGroup& group) {
    int chosen = group.LBound();
    for (const auto& [index, option] : group)
        if (option->isChecked()) chosen = index;
    return static_cast<int16_t>(chosen);
}

void SetArrayIndex(const OptionGroup& group, int index) {
    if (!group.Has(index))
        Notify("Internal Error: SetArrayIndex. Check input/form data.", box_style::Plain, RangeErrorTitle);
    QRadioButton& chosen = group[index];
    // An exclusive group would not let its last option go.
    for (const auto& [element, option] : group) {
        const bool exclusive = option->autoExclusive();
        option->setAutoExclusive(false);
        option->setChecked(false);
        option->setAutoExclusive(exclusive);
    }
    chosen.setChecked(true);
}

}  // namespace tarvokol
