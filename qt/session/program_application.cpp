// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/program_application.h"

#include <QEvent>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>

#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/text.h"
#include "qt/session/owner_window.h"
#include "qt/session/program_style.h"
#include "qt/session/screen_reader.h"

namespace tarvokol {
namespace {

constexpr int kInternalError = 51;

// Runs the work; the error that it raises, if any. Failures of the language's own library are told as the
// run-time errors that they amount to.
template <typename Work>
std::optional<RunTimeError> ErrorOf(Work work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(error_number::OutOfMemory);
    } catch (const std::exception& error) {
        return RunTimeError(kInternalError, error.what());
    }
    return std::nullopt;
}

// A shortcut reaches its action directly, past the window that it belongs to; a disabled window takes none.
bool BelongsToDisabledWindow(const QObject* receiver) {
    for (const QObject* object = receiver; object != nullptr; object = object->parent()) {
        const auto* widget = qobject_cast<const QWidget*>(object);
        if (widget != nullptr && widget->isWindow()) return !widget->isEnabled();
    }
    return false;
}

// Where the unsaved project is; nothing while there is none.
std::string KeptWorkMessage() {
    const std::string path = UnsavedWorkPath();
    if (path.empty()) return "";
    return std::string(CrLf) + std::string(CrLf) + "The unsaved project is kept in: " + path;
}

}  // namespace

// The desktop's style is known only once the application object is there; before, the toolkit would take its
// oldest one for it.
ProgramApplication::ProgramApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setStyle(new ProgramStyle);
    TellScreenReaders();
}

bool ProgramApplication::notify(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Shortcut && BelongsToDisabledWindow(receiver)) return true;
    if (event->type() == QEvent::WindowActivate && receiver->isWidgetType())
        RememberActiveWindow(*static_cast<QWidget*>(receiver));
    bool handled = true;
    const auto error = ErrorOf([&] { handled = QApplication::notify(receiver, event); });
    if (error) TakeUnhandled(*error);
    return handled;
}

void ProgramApplication::Run(const std::function<void()>& work) {
    if (const auto error = ErrorOf(work)) TakeUnhandled(*error);
}

void ProgramApplication::TakeUnhandled(const RunTimeError& error) {
    if (sink_) {
        sink_(error);
        return;
    }
    TellUnhandled(error);
    // The statements that follow the failed one must not run, so nothing is unwound.
    std::_Exit(EXIT_FAILURE);
}

void TellUnhandled(const RunTimeError& error) {
    const std::string message = UnhandledErrorMessage(error) + KeptWorkMessage();
    std::fprintf(stderr, "%s\n", message.c_str());
    QApplication::restoreOverrideCursor();
    const std::string title = AppLongTitle.empty() ? "TARVO-KOL" : AppLongTitle;
    if (Platform.Messages != nullptr) Platform.Messages->Show({message, box_style::Critical, title, "", 0});
}

std::string UnhandledErrorMessage(const RunTimeError& error) {
    return "Run-time error '" + std::to_string(error.number) + "':" + std::string(CrLf) + std::string(CrLf) +
           error.text;
}

}  // namespace tarvokol
