// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/command_guard.h"

#include <optional>

#include "core/messages/error_classes.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

std::optional<RunTimeError> ErrorOutOf(const std::function<void()>& statement) {
    try {
        statement();
        return std::nullopt;
    } catch (const RunTimeError& error) {
        return error;
    }
}

}  // namespace

void CommandGuard::operator()(const std::function<void()>& statement) {
    while (!left_) {
        const std::optional<RunTimeError> error = ErrorOutOf(statement);
        if (!error) return;
        CurrentError = *error;
        cancelled_ = false;
        switch (HandleRuntimeError(*error, true)) {
            case error_answer::Repeat:
                continue;
            case error_answer::Next:
                return;
            case error_answer::Cancelled:
                cancelled_ = true;
                return;
            default:
                left_ = true;
        }
    }
}

}  // namespace tarvokol
