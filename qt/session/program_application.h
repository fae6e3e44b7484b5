// SPDX-License-Identifier: GPL-3.0-or-later
// The application object of every program with windows: no exception crosses its event loop.
#pragma once

#include <QApplication>
#include <functional>
#include <type_traits>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

// A run-time error that no handler takes ends the program: a critical box tells its number and text, then the
// process leaves with exit status 1. Whatever happens in an event handler without a guard relies on that.
class ProgramApplication : public QApplication {
  public:
    using ErrorSink = std::function<void(const RunTimeError&)>;

    ProgramApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // Runs a piece of work that no event brings, such as start-up, under the same rule.
    void Run(const std::function<void()>& work);

    // Takes unhandled errors instead of the box and the end of the program; an empty sink restores these.
    void SetErrorSink(ErrorSink sink) { sink_ = std::move(sink); }

  private:
    void TakeUnhandled(const RunTimeError& error);

    ErrorSink sink_;
};

// Shows an error that nobody has handled in a critical box, and where the unsaved project is.
void TellUnhandled(const RunTimeError& error);

// What the critical box says: "Run-time error '53':", an empty line, "File not found".
std::string UnhandledErrorMessage(const RunTimeError& error);

}  // namespace tarvokol
