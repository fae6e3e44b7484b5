// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/form_facts.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "qt/session/qt_text.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

QString CaptionOf(const QWidget& control) {
    if (control.isWindow()) return control.windowTitle();
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) return button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control)) return frame->title();
    QStringList pages;
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&control))
        for (int page = 0; page < tabs->count(); ++page) pages << tabs->tabText(page);
    return pages.join('|');
}

QString Quoted(const char* word, const QString& text) {
    if (text.isEmpty()) return {};
    return QString(word) + " '" + text + '\'';
}

// The right end of a box that holds little shows what lies behind its text.
bool IsGrey(QLineEdit& box) {
    const QImage picture = PictureOf(box);
    return picture.pixelColor(picture.width() - 4, picture.height() / 2) ==
           box.window()->palette().color(QPalette::Window);
}

QString StateOf(QWidget& control) {
    QString state;
    const auto add = [&state](bool holds, const char* word) {
        if (holds) state += QString(" ") + word;
    };
    add(control.property("checked").toBool(), "on");
    add(!control.isEnabled(), "off");
    add(control.property("readOnly").toBool(), "locked");
    auto* box = qobject_cast<QLineEdit*>(&control);
    add(box != nullptr && IsGrey(*box), "grey");
    add(control.isHidden() && !control.isWindow(), "hidden");
    add(control.property("default").toBool(), "default");
    add(control.property("cancel").toBool(), "cancel");
    return state;
}

// Nothing for a control that only holds others.
QString LineOf(QWidget& control) {
    QString line = Quoted("", CaptionOf(control));
    if (const auto* label = qobject_cast<const QLabel*>(&control);
        label != nullptr && label->buddy() != nullptr)
        line += " for " + label->buddy()->objectName();
    line += Quoted(" read", control.accessibleName());
    line += Quoted(" told", control.accessibleDescription());
    line += Quoted(" tip", control.toolTip());
    return line.isEmpty() ? line : line + StateOf(control);
}

// What the toolkit makes inside a control has no name, or one of its own.
bool IsOurs(const QWidget& widget) {
    const QString name = widget.objectName();
    return !name.isEmpty() && !name.startsWith("qt_") && !name.startsWith("Scroll");
}

}  // namespace

std::vector<std::string> FactsOf(QWidget& form) {
    std::vector<std::string> lines{FromQt(form.objectName() + LineOf(form))};
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (!IsOurs(*control)) continue;
        const QString line = LineOf(*control);
        if (!line.isEmpty()) lines.push_back(FromQt(control->objectName() + line));
    }
    return lines;
}

std::vector<std::string> FocusChainOf(QWidget& form, const std::string& first) {
    std::vector<std::string> names;
    QWidget* const begin = form.findChild<QWidget*>(ToQt(first));
    QWidget* control = begin;
    do {
        if (IsOurs(*control) && control->focusPolicy() != Qt::NoFocus)
            names.push_back(FromQt(control->objectName()));
        control = control->nextInFocusChain();
    } while (control != begin);
    return names;
}

bool InAnotherFont() {
    return qEnvironmentVariableIsSet("TARVOKOL_DESKTOP_FONT");
}

QSize DrawnIn(const QMainWindow& form, const QSize& drawn) {
    if (!InAnotherFont()) return drawn;
    const QSize size = drawn.expandedTo(form.minimumSizeHint());
    const QWidget& body = *form.centralWidget();
    return body.hasHeightForWidth() ? size.expandedTo({0, body.heightForWidth(size.width())}) : size;
}

}  // namespace tarvokol
