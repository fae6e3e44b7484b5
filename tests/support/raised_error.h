// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/runtime/run_time_error.h"

namespace tarvokol {

// Runs the action and returns the number of the run-time error that it raises, 0 for none.
template <typename Action>
int RaisedError(Action action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

}  // namespace tarvokol
