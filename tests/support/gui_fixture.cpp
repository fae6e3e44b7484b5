// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/gui_fixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>
#include <stdexcept>

#include "core/program/start_up.h"
#include "desktop/base/form_services.h"
#include "qt/session/program_application.h"

namespace tarvokol {
namespace {

constexpr int kWatchMilliseconds = 5;
constexpr int kIdleTicksAllowed = kPatienceMilliseconds / 2 / kWatchMilliseconds;

std::vector<RunTimeError> Unhandled;

QPoint ClickPoint(const QWidget& control) {
    const bool marked =
        qobject_cast<const QRadioButton*>(&control) || qobject_cast<const QCheckBox*>(&control);
    return marked ? QPoint(8, control.height() / 2) : control.rect().center();
}

}  // namespace

void RecordUnhandledError(const RunTimeError& error) {
    Unhandled.push_back(error);
}

GuiTest::GuiTest() {
    Unhandled.clear();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { WatchModalWindows(); });
    watch_.start(kWatchMilliseconds);
}

GuiTest::~GuiTest() {
    watch_.stop();
    UnloadAllForms();
    RunEvents();
    SetScreenPointer(MousePointer::Default);
    if (!scripts_.empty()) ADD_FAILURE() << "never shown modally: " << scripts_.front().name;
}

void GuiTest::MissingControl(const QWidget& form, std::string_view name) {
    throw std::runtime_error("no control " + std::string(name) + " on " + FromQt(form.objectName()));
}

// Since Qt 6.5 a program is meant to activate windows only; the platform of the tests has nobody else who takes that away.
void GuiTest::LeaveNoWindowActive() {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(nullptr);
    QT_WARNING_POP
}

void GuiTest::Click(QWidget& form, const std::string& name) {
    QWidget& control = Find<QWidget>(form, name);
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, ClickPoint(control));
}

void GuiTest::Type(QWidget& form, const std::string& name, const std::string& text) {
    QWidget& box = Find<QWidget>(form, name);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, ToQt(text));
}

void GuiTest::Press(QWidget& form, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = form.focusWidget() != nullptr ? form.focusWidget() : &form;
    QTest::keyClick(target, key, modifiers);
}

bool GuiTest::Choose(QWidget& form, const std::string& action) {
    auto& command = Find<QAction>(form, action);
    if (!form.isEnabled() || !command.isEnabled() || !command.isVisible()) return false;
    static_cast<ProgramApplication*>(qApp)->Run([&] { command.trigger(); });
    return true;
}

std::string GuiTest::TextOf(QWidget& form, const std::string& name) {
    QWidget& control = Find<QWidget>(form, name);
    if (auto* box = qobject_cast<QPlainTextEdit*>(&control)) return FromQt(box->toPlainText());
    if (auto* box = qobject_cast<QTextEdit*>(&control)) return FromQt(box->toPlainText());
    QString text = control.property("text").toString();
    // The mark of a label's mnemonic is no letter of its caption.
    if (auto* label = qobject_cast<QLabel*>(&control); label != nullptr && label->buddy() != nullptr)
        text.remove('&');
    return FromQt(text);
}

void GuiTest::ShowAndActivate(FormBase& form) {
    form.ShowModeless();
    if (!WaitUntilActive(form)) ADD_FAILURE() << "did not become active: " << FromQt(form.objectName());
}

void GuiTest::WhenShown(const std::string& form, std::function<void(FormBase&)> script) {
    scripts_.push_back(
        {form, [form](QWidget& modal) { return modal.objectName() == ToQt(form); },
         [script = std::move(script)](QWidget& modal) { script(static_cast<FormBase&>(modal)); }});
}

// What a window does when it comes to the front is done once it is active, and keys reach it.
void GuiTest::WatchModalWindows() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) {
        idle_ticks_ = 0;
        return;
    }
    if (modal->isActiveWindow() && !scripts_.empty() && scripts_.front().is_for(*modal)) {
        const ModalScript script = scripts_.front();
        scripts_.pop_front();
        idle_ticks_ = 0;
        script.run(*modal);
        return;
    }
    if (++idle_ticks_ < kIdleTicksAllowed) return;
    idle_ticks_ = 0;
    GiveUp(*modal);
}

void GuiTest::GiveUp(QWidget& modal) {
    ADD_FAILURE() << (modal.isActiveWindow() ? "a modal window was left open: "
                                             : "a modal window was never active: ")
                  << FromQt(modal.objectName()) << " " << FromQt(modal.windowTitle());
    if (auto* form = qobject_cast<FormBase*>(&modal)) form->Abandon();
    if (auto* dialog = qobject_cast<QDialog*>(&modal)) dialog->reject();
}

void GuiTest::RunEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

const std::vector<RunTimeError>& GuiTest::UnhandledErrors() {
    return Unhandled;
}

}  // namespace tarvokol
