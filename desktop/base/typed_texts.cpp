// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/typed_texts.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <algorithm>
#include <vector>

#include "core/project/recovery_copy.h"
#include "desktop/base/form_base.h"
#include "desktop/base/form_services.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kPause = 1000;  // milliseconds after the last key
constexpr const char* kChosen = "on";

std::vector<TypedTextsKeeper*>& Keepers() {
    static std::vector<TypedTextsKeeper*> keepers;
    return keepers;
}

std::string NameOf(const QWidget& control) {
    return FromQt(control.objectName());
}

// The toolkit has boxes inside its own controls, which have names of their own kind.
bool IsFormsOwn(const QWidget& control) {
    return !control.objectName().isEmpty() && !control.objectName().startsWith("qt_");
}

}  // namespace

TypedTexts TypedTextsOf(const FormBase& form) {
    TypedTexts typed{FromQt(form.objectName()), {}};
    for (const auto* box : form.findChildren<QLineEdit*>())
        if (IsFormsOwn(*box) && !box->isReadOnly())
            typed.boxes.emplace_back(NameOf(*box), FromQt(box->text()));
    for (const auto* box : form.findChildren<QPlainTextEdit*>())
        if (!box->isReadOnly()) typed.boxes.emplace_back(NameOf(*box), LinesOf(*box));
    for (const auto* option : form.findChildren<QRadioButton*>())
        if (option->isChecked()) typed.boxes.emplace_back(NameOf(*option), kChosen);
    return typed;
}

void PutTypedTexts(FormBase& form, const TypedTexts& typed) {
    for (const auto& [name, text] : typed.boxes) {
        auto* control = form.findChild<QWidget*>(ToQt(name));
        if (auto* box = qobject_cast<QLineEdit*>(control))
            box->setText(ToQt(text));
        else if (auto* lines = qobject_cast<QPlainTextEdit*>(control))
            lines->setPlainText(ToQt(text));
        else if (auto* option = qobject_cast<QRadioButton*>(control);
                 option != nullptr && option->isEnabled())
            option->setChecked(true);
    }
}

TypedTextsKeeper::TypedTextsKeeper(FormBase& form) : form_(form), loaded_(TypedTextsOf(form)) {
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    const auto wait = [this] { pause_.start(); };
    for (const auto* box : form.findChildren<QLineEdit*>())
        connect(box, &QLineEdit::textChanged, &pause_, wait);
    for (const auto* box : form.findChildren<QPlainTextEdit*>())
        connect(box, &QPlainTextEdit::textChanged, &pause_, wait);
    for (const auto* option : form.findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, &pause_, wait);
    connect(&pause_, &QTimer::timeout, this, &TypedTextsKeeper::Keep);
    Keepers().push_back(this);
}

TypedTextsKeeper::~TypedTextsKeeper() {
    auto& keepers = Keepers();
    keepers.erase(std::remove(keepers.begin(), keepers.end(), this), keepers.end());
}

// What is as it was loaded is in the project.
void TypedTextsKeeper::Keep() {
    pause_.stop();
    if (dropped_ || form_.IsUnloaded()) return;
    const TypedTexts typed = TypedTextsOf(form_);
    if (typed == loaded_)
        DropTypedTexts();
    else
        KeepTypedTexts(typed);
}

void TypedTextsKeeper::Drop() {
    dropped_ = true;
    pause_.stop();
    DropTypedTexts();
}

void KeepAllTypedTexts() {
    for (TypedTextsKeeper* keeper : Keepers()) keeper->Keep();
}

}  // namespace tarvokol
