// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a run-time error that reaches a command handler.
#pragma once

#include <cstdint>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

enum class ErrorClass {
    Printer = 0,
    Device = 1,
    Call = 2,
    File = 3,
    Unexpected = 4,
    Cancelled = 5,
    Database = 6
};

// Answers of HandleRuntimeError; any other leaves the procedure.
namespace error_answer {
constexpr int16_t Repeat = 0;
constexpr int16_t Next = 1;
constexpr int16_t Cancelled = 2;
constexpr int16_t Leave = 3;
constexpr int16_t LeaveDatabase = 6;
}  // namespace error_answer

ErrorClass ClassOfError(int number);

// Sorts the error into its class, logs it, asks and answers what the handler shall do (error_answer). Without
// showMessage nothing is logged or shown.
int16_t HandleRuntimeError(const RunTimeError& error, bool showMessage);

// The same for the error noted last, for a handler that has no error in its hands. Written by
// core/messages/command_guard.
inline RunTimeError CurrentError{0, ""};
int16_t HandleRuntimeError(bool showMessage);

}  // namespace tarvokol
