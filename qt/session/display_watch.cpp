// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/display_watch.h"

#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

struct Complaint {
    QtMsgType type;
    const char* category;
    QString text;
};

struct HeldBack {
    std::mutex access;  // the toolkit's threads complain, too
    std::vector<Complaint> complaints;
    QtMessageHandler passed_on_to = nullptr;
};
HeldBack Held;

void PassOn(const Complaint& complaint) {
    Held.passed_on_to(complaint.type, QMessageLogContext(nullptr, 0, nullptr, complaint.category),
                      complaint.text);
}

void PassAllOn() {
    for (const Complaint& complaint : Held.complaints) PassOn(complaint);
    Held.complaints.clear();
}

// What opens displays complains in these categories; a complaint of a locale or a font is no reason.
bool IsOfDisplay(const Complaint& complaint) {
    return complaint.category != nullptr && std::string_view(complaint.category).starts_with("qt.qpa");
}

// The toolkit's first complaint of a display tells which it has tried; without any to try it tells nothing.
std::string Reason() {
    bool named = false;
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        named = named || !qEnvironmentVariableIsEmpty(variable);
    const auto first = std::find_if(Held.complaints.begin(), Held.complaints.end(), IsOfDisplay);
    if (!named || first == Held.complaints.end()) return "";
    return " (" + FromQt(first->text.simplified()) + ")";
}

void Take(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const std::lock_guard lock(Held.access);
    if (type == QtFatalMsg && text.contains("platform plugin")) {
        std::fprintf(stderr,
                     "tarvokol: there is no display to open a window on%s; tarvokol-cli works without one\n",
                     Reason().c_str());
        std::_Exit(EXIT_FAILURE);
    }
    Held.complaints.push_back({type, context.category, text});
    if (type == QtFatalMsg) PassAllOn();  // the toolkit aborts after that
}

}  // namespace

DisplayWatch::DisplayWatch() {
    const std::lock_guard lock(Held.access);
    Held.passed_on_to = qInstallMessageHandler(Take);
}

DisplayWatch::~DisplayWatch() {
    qInstallMessageHandler(Held.passed_on_to);
    const std::lock_guard lock(Held.access);
    PassAllOn();
}

}  // namespace tarvokol
