// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/form_base.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <map>
#include <utility>

#include "core/platform/help_viewer.h"
#include "core/platform/platform.h"
#include "core/program/start_up.h"
#include "desktop/base/form_services.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

std::vector<FormBase*> Forms;

// The form that the user came to last, until he goes on to another one.
FormBase* Foremost = nullptr;

// Sizes that the user gave to forms in this run, by the form's name.
std::map<QString, QSize> ChosenSizes;

bool TakesInput(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

bool StandsAbove(const QWidget& form, const QWidget& below) {
    const QWindow* window = form.windowHandle();
    while (window != nullptr && window != below.windowHandle()) window = window->transientParent();
    return window != nullptr && &form != &below;
}

// A tab widget counts with a part of its tab bar only, because the bar can be scrolled.
int WidthOfAllTabs(const QWidget& form) {
    int width = 0;
    for (const auto* tabs : form.findChildren<QTabWidget*>()) {
        const int around = form.minimumSizeHint().width() - tabs->minimumSizeHint().width();
        width = std::max(width, around + tabs->tabBar()->sizeHint().width());
    }
    return width;
}

}  // namespace

FormBase::FormBase() {
    Forms.push_back(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { RememberFocus(now); });
}

FormBase::~FormBase() {
    // The window's own end moves the focus once more; this is no form by then.
    disconnect(qApp, nullptr, this, nullptr);
    if (Foremost == this) Foremost = nullptr;
    std::erase(Forms, this);
}

void FormBase::Load() {
    try {
        Form_Load();
    } catch (...) {
        Discard();
        throw;
    }
    ShowHeadsOfTexts(*this);
    WidenBoxes(*this);
    TurnPagesByKeys(*this);
    FitToContents();
    TakeChosenSize();
    CenterForm(*this);
    fitted_font_ = font();
}

// A large font needs more room than the form was drawn with, and a form that is larger than the screen hides
// its buttons: there the content scrolls.
void FormBase::FitToContents() {
    const QSize room = RoomFor(*this);
    const QSize least = minimumSizeHint();
    const int width =
        std::min(std::max({size().width(), least.width(), WidthOfAllTabs(*this)}), room.width());
    const int least_height = HeightNeededFor(width);
    if (least.width() > room.width() || least_height > room.height()) LetContentsScroll();
    resize(width, std::min(std::max(size().height(), least_height), room.height()));
}

// Wrapped text needs the more height the narrower the form is.
int FormBase::HeightNeededFor(int width) const {
    const QWidget* body = centralWidget();
    const bool wraps = body != nullptr && body->hasHeightForWidth();
    return std::max(minimumSizeHint().height(), wraps ? body->heightForWidth(width) : 0);
}

void FormBase::LetContentsScroll() {
    if (qobject_cast<QScrollArea*>(centralWidget()) != nullptr) return;
    QWidget* focus = focusWidget();
    QWidget* body = takeCentralWidget();
    if (body == nullptr) return;
    auto* view = new QScrollArea;
    view->setObjectName("contentsView");
    view->setFrameShape(QFrame::NoFrame);
    view->setWidgetResizable(true);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWidget(body);
    setCentralWidget(view);
    // What changes its parent loses it.
    if (focus != nullptr) focus->setFocus();
}

void FormBase::TakeChosenSize() {
    if (!KeepsSizeOfUser()) return;
    const auto chosen = ChosenSizes.find(objectName());
    if (chosen != ChosenSizes.end()) resize(chosen->second.boundedTo(RoomFor(*this)));
}

void FormBase::KeepChosenSize() {
    if (sized_by_user_ && !isMaximized() && !isFullScreen()) ChosenSizes[objectName()] = size();
}

void FormBase::ShowModeless(QWidget* owner) {
    if (unloaded_) return;
    // Only a window of this type is kept above its owner by the window manager. The owner is disabled; on top
    // it would hide what it waits for.
    if (owner != nullptr) setWindowFlag(Qt::Dialog);
    Present(owner);
}

void FormBase::ShowModal(QWidget* owner) {
    if (unloaded_) return;
    QPointer<QWidget> opener = owner != nullptr ? owner : QApplication::activeWindow();
    setWindowFlag(Qt::Dialog);
    setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    modal_loop_ = &loop;
    Present(opener);
    loop.exec(QEventLoop::DialogExec);
    if (TakesInput(opener)) opener->activateWindow();
}

// Whoever was in front is left, also where the desktop never gives this form the keyboard.
void FormBase::Present(QWidget* owner) {
    if (Foremost != this) LeaveForemost();
    const QWidget* below = owner != nullptr ? owner : QApplication::activeWindow();
    winId();
    if (below != nullptr && below->window() != this && below->window()->windowHandle() != nullptr)
        windowHandle()->setTransientParent(below->window()->windowHandle());
    show();
    raise();
    activateWindow();
}

bool FormBase::Unload() {
    if (unloaded_ || unloading_) return true;
    const QScopedValueRollback guard(unloading_, true);
    if (!Form_QueryUnload()) return false;
    Form_Unload();
    Discard();
    return true;
}

void FormBase::Discard() {
    if (unloaded_) return;
    unloaded_ = true;
    KeepChosenSize();
    if (Foremost == this) Foremost = nullptr;
    ForgetInstance();
    std::erase(Forms, this);
    SetScreenPointer(MousePointer::Default);
    hide();
    if (modal_loop_ != nullptr) modal_loop_->quit();
    modal_loop_ = nullptr;
    deleteLater();
}

std::string FormBase::HelpTopic() const {
    return FromQt(objectName()) + ".htm";
}

bool FormBase::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate) Activate();
    return handled;
}

// A window manager may make a disabled form the active window; the form takes notice once it is enabled.
void FormBase::Activate() {
    activate_missed_ = !isEnabled();
    if (!unloaded_ && !settled_) QTimer::singleShot(0, this, [this] { SettleInFrame(); });
    settled_ = true;
    if (activate_missed_ && !unloaded_) QTimer::singleShot(0, this, [this] { BringFrontForward(); });
    if (unloaded_ || activate_missed_ || Foremost == this) return;
    LeaveForemost();
    Foremost = this;
    Form_Activate();
}

// Only a window that shows knows its frame.
void FormBase::SettleInFrame() {
    if (!unloaded_ && isVisible() && NoteFrame(*this) && !isMaximized() && !isFullScreen()) CenterForm(*this);
}

// A desktop may activate a form that waits for another one: the keyboard belongs to that one.
void FormBase::BringFrontForward() {
    if (unloaded_ || isEnabled() || !isActiveWindow()) return;
    const auto front = std::find_if(Forms.rbegin(), Forms.rend(), [this](const FormBase* form) {
        return TakesInput(form) && StandsAbove(*form, *this);
    });
    if (front == Forms.rend()) return;
    (*front)->raise();
    (*front)->activateWindow();
}

void FormBase::LeaveForemost() {
    FormBase* left = std::exchange(Foremost, nullptr);
    if (left != nullptr) left->Form_Deactivate();
}

void FormBase::RememberFocus(QWidget* now) {
    if (now == nullptr || now->window() != this) return;
    last_focus_ = now;
    // Where another button has the focus it takes Enter from the default one, and its look with it.
    if (QPushButton* button = ButtonWith("default")) button->update();
}

// The controls have the new font once control is back in the event loop.
void FormBase::FollowFont() {
    if (unloaded_ || font() == fitted_font_) return;
    fitted_font_ = font();
    WidenBoxes(*this);
    Form_FontChange();
    FitToContents();
    if (!sized_by_user_ && !isMaximized() && !isFullScreen()) CenterForm(*this);
}

void FormBase::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // A desktop may tell its font only when windows stand.
    if (event->type() == QEvent::FontChange && !unloaded_)
        QTimer::singleShot(0, this, [this] { FollowFont(); });
    if (event->type() != QEvent::EnabledChange) return;
    if (!isEnabled() && Foremost == this) LeaveForemost();
    if (!isEnabled()) return;
    // Disabling a window takes the focus from its control.
    if (last_focus_ != nullptr && focusWidget() == nullptr) last_focus_->setFocus();
    if (activate_missed_ && isActiveWindow()) Activate();
}

void FormBase::closeEvent(QCloseEvent* event) {
    const bool closed = unloaded_ || (isEnabled() && Unload());
    event->setAccepted(closed);
}

void FormBase::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_F1:
            Platform.Help->ShowTopic(RunTimeHelpFile, HelpTopic());
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (PressDefault()) return;
            break;
        case Qt::Key_Escape:
            if (PressCancel()) return;
            break;
        default:
            break;
    }
    QMainWindow::keyPressEvent(event);
}

// Enter presses the button that has the focus, else the default button.
bool FormBase::PressDefault() {
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (button == nullptr) button = ButtonWith("default");
    if (button == nullptr) return false;
    button->click();
    return true;
}

bool FormBase::PressCancel() {
    QPushButton* button = ButtonWith("cancel");
    if (button == nullptr) return false;
    button->click();
    return true;
}

QPushButton* FormBase::ButtonWith(const char* property) const {
    const auto buttons = findChildren<QPushButton*>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QPushButton* button) {
        return button->property(property).toBool() && TakesInput(button);
    });
    return found == buttons.end() ? nullptr : *found;
}

void FormBase::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (event->spontaneous() && isVisible()) sized_by_user_ = true;
    if (!unloaded_) Form_Resize();
}

FormBase* FindForm(std::string_view name) {
    const auto found = std::find_if(Forms.begin(), Forms.end(),
                                    [&](const FormBase* form) { return form->objectName() == ToQt(name); });
    return found == Forms.end() ? nullptr : *found;
}

const std::vector<FormBase*>& LoadedForms() {
    return Forms;
}

void EnableAndFocus(FormBase& form) {
    form.setEnabled(true);
    form.raise();
    form.activateWindow();
}

void EnableAndFocus(std::string_view name) {
    if (FormBase* form = FindForm(name)) EnableAndFocus(*form);
}

void UnloadAllForms() {
    while (!Forms.empty()) Forms.back()->Abandon();
}

}  // namespace tarvokol
