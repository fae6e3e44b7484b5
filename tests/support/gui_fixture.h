// SPDX-License-Identifier: GPL-3.0-or-later
// What every GUI test starts from: the headless bindings of the core fixture, no form loaded, and hands to
// drive forms with: controls by their names, clicks, keys, menu commands, scripts for forms that show
// modally.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "desktop/base/form_base.h"
#include "qt/session/qt_text.h"
#include "tests/support/core_fixture.h"
#include "tests/support/waiting.h"

namespace tarvokol {

class GuiTest : public CoreTest {
  protected:
    GuiTest();
    ~GuiTest() override;

    // The control, or the action, of a name on a form; a missing one ends the test with its name.
    template <typename Control = QWidget>
    static Control& Find(QWidget& form, std::string_view name) {
        auto* control = form.findChild<Control*>(ToQt(name));
        if (control == nullptr) MissingControl(form, name);
        return *control;
    }

    // A left click in the middle of a control (for options and check boxes: on their mark).
    static void Click(QWidget& form, const std::string& name);

    // Replaces the text of a box as a user does: focus, select all, keys.
    static void Type(QWidget& form, const std::string& name, const std::string& text);

    // A key press on the control that has the form's focus, or on the form itself.
    static void Press(QWidget& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    // Chooses a menu command by its action's name; true if it was enabled and visible.
    static bool Choose(QWidget& form, const std::string& action);

    // Text of a box, label or button.
    static std::string TextOf(QWidget& form, const std::string& name);

    // Shows a form and waits until it is the active window.
    static void ShowAndActivate(FormBase& form);

    // As between two message boxes, or while another program is in front.
    static void LeaveNoWindowActive();

    // Runs the script when the form of that name has come up modally and is the active window; scripts run in the order of
    // their making, each once. A modal window without a script is closed after half a minute, and the test fails.
    void WhenShown(const std::string& form, std::function<void(FormBase&)> script);

    // The same for a dialog of the toolkit, by its type.
    template <typename Dialog>
    void WhenDialogShows(std::function<void(Dialog&)> script) {
        scripts_.push_back(
            {Dialog::staticMetaObject.className(),
             [](QWidget& modal) { return qobject_cast<Dialog*>(&modal) != nullptr; },
             [script = std::move(script)](QWidget& modal) { script(static_cast<Dialog&>(modal)); }});
    }

    // Lets posted events, deferred deletions included, run.
    static void RunEvents();

    // Run-time errors that no handler took since the test began; in the program each would have ended it.
    static const std::vector<RunTimeError>& UnhandledErrors();

  private:
    struct ModalScript {
        std::string name;
        std::function<bool(QWidget&)> is_for;
        std::function<void(QWidget&)> run;
    };

    [[noreturn]] static void MissingControl(const QWidget& form, std::string_view name);
    void WatchModalWindows();
    static void GiveUp(QWidget& modal);

    std::deque<ModalScript> scripts_;
    QTimer watch_;
    int idle_ticks_ = 0;
};

// Where the application object of the test binary leaves unhandled errors.
void RecordUnhandledError(const RunTimeError& error);

}  // namespace tarvokol
