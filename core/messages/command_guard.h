// SPDX-License-Identifier: GPL-3.0-or-later
// The error handling of a command: a list of statements, each run under the guard.
#pragma once

#include <functional>

namespace tarvokol {

// A run-time error out of a statement goes to HandleRuntimeError. By its answer the statement is repeated, the next
// one follows, `cancelled` is set and the next one follows, or the handler is left: every later statement under the
// guard is then passed over. `cancelled` is cleared whenever the guard deals with an error.
class CommandGuard {
  public:
    // With a flag of its own, for a handler that no other one asks whether it was cancelled.
    CommandGuard() : cancelled_(own_cancelled_) {}
    explicit CommandGuard(bool& cancelled) : cancelled_(cancelled) {}
    CommandGuard(const CommandGuard&) = delete;
    CommandGuard& operator=(const CommandGuard&) = delete;

    void operator()(const std::function<void()>& statement);

    // True once the handler has been left; what stands outside the guard after it must not run then.
    bool Left() const { return left_; }

    // True if the last error that the guard dealt with was a cancelled dialog.
    bool Cancelled() const { return cancelled_; }

  private:
    bool own_cancelled_ = false;
    bool& cancelled_;
    bool left_ = false;
};

}  // namespace tarvokol
