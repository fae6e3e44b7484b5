// SPDX-License-Identifier: GPL-3.0-or-later
// Small services that the forms share: placing, pointer, text selection, control arrays, tab stops.
#pragma once

#include <QAbstractButton>
#include <QRadioButton>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "core/platform/main_window_services.h"
#include "core/runtime/run_time_error.h"
#include "qt/session/screen_units.h"

class QLineEdit;
class QPlainTextEdit;
class QTabWidget;

namespace tarvokol {

// Form geometry is given in twips.
inline constexpr int TwipsOf(int pixels) {
    return pixels * TwipsPerPixel;
}
inline constexpr int PixelsOf(int twips) {
    return twips / TwipsPerPixel;
}

// Puts the form in the middle of its screen; one that is larger than the screen at its top or left edge.
void CenterForm(QWidget& form);

// What a form may take of its screen beside what the desktop puts around it.
QSize RoomFor(const QWidget& form);

// Remembers what the desktop puts around the form, which counts for forms that do not show yet; true if that has changed.
bool NoteFrame(const QWidget& form);

// Distance from the screen's edge that centres a form of the given extent: half of the rest, or 0 if there is
// none.
int CenteredOffset(int screen_extent, int form_extent);

// The pointer over all windows of the program.
void SetScreenPointer(MousePointer pointer);

// If the control that has the focus is a text box, selects its whole text.
void SelectAllText();

// Selects a box's whole text with the caret at its beginning, so that a long one shows its head.
void SelectWhole(QLineEdit& box);

// From now on every text box inside `container` selects its whole text when it gets the focus, with the mouse
// too.
void SelectAllOnFocus(QWidget& container);

// The range check of a text box: the service's message on failure, then the box gets the focus. True if
// valid.
bool CheckRangeOf(QLineEdit& box, double low, double high, const std::string& label = "");

// A figure longer than its box shows its first digits, not its last ones: from now on the caret stands at the
// beginning of every text that the program puts into a box, and of one that the user leaves.
void ShowHeadsOfTexts(QWidget& container);

// Boxes of a fixed width get room for ten digits of their font, those that take fewer for as many.
void WidenBoxes(QWidget& container);

// A box's text, its lines joined by CR LF, every other character as it stands.
std::string LinesOf(const QPlainTextEdit& box);

// Only the controls on the page that shows can be reached with the tab key; call it on load and on a page
// change.
void FixTabStops(QTabWidget& tabs);

// From now on Ctrl+Tab and Ctrl+Shift+Tab turn the pages of the form's one tab control, from its buttons as well.
void TurnPagesByKeys(QWidget& form);

// Raises "Control array element doesn't exist" (340).
[[noreturn]] void RaiseMissingElement();

// The controls of a form that are named "<name>_<index>".
template <typename Control>
class ControlArray {
  public:
    ControlArray() = default;
    ControlArray(const QWidget& form, const QString& name) {
        const QString prefix = name + '_';
        for (Control* control : form.findChildren<Control*>()) {
            if (!control->objectName().startsWith(prefix)) continue;
            bool is_number = false;
            const int index = control->objectName().mid(prefix.size()).toInt(&is_number);
            if (is_number) controls_[index] = control;
        }
    }

    // A missing element raises error 340.
    Control& operator[](int index) const {
        const auto found = controls_.find(index);
        if (found == controls_.end()) RaiseMissingElement();
        return *found->second;
    }

    bool Has(int index) const { return controls_.contains(index); }

    // Lowest and highest index; an empty array raises error 340.
    int LBound() const {
        if (controls_.empty()) RaiseMissingElement();
        return controls_.begin()->first;
    }
    int UBound() const {
        if (controls_.empty()) RaiseMissingElement();
        return controls_.rbegin()->first;
    }

    auto begin() const { return controls_.begin(); }
    auto end() const { return controls_.end(); }

  private:
    std::map<int, Control*> controls_;
};

using OptionGroup = ControlArray<QRadioButton>;

// Calls `chosen` whenever the option is turned on, by whomever, and when it is clicked while it is on.
void OnChoice(QRadioButton& option, QObject& listener, const std::function<void()>& chosen);

// The last index whose option is on; the lowest index if none is.
int16_t GetOptionIndex(const OptionGroup& group);

// Turns all options off, then the one at `index` on. An index outside the group shows an internal error and
// then raises error 340. The option's click handler runs.
void SetArrayIndex(const OptionGroup& group, int index);

// Connects every element's click to `(form.*handler)(index)`; for options: whenever one is turned on, and at a click
// on the one that is on.
template <typename Form, typename Control>
void ConnectClicks(const ControlArray<Control>& controls, Form* form, void (Form::*handler)(int)) {
    for (const auto& [index, control] : controls)
        QObject::connect(control, &QAbstractButton::clicked, form,
                         [form, handler, element = index] { (form->*handler)(element); });
}
template <typename Form>
void ConnectClicks(const OptionGroup& options, Form* form, void (Form::*handler)(int)) {
    for (const auto& [index, option] : options)
        OnChoice(*option, *form, [form, handler, element = index] { (form->*handler)(element); });
}

}  // namespace tarvokol
