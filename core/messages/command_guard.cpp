#include "core/messages/command_guard.h"

#include "core/messages/error_classes.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {

void CommandGuard::operator()(const std::function<void()>& statement) {
    while (!left_) {
        try {
            statement();
            return;
        } catch (const RunTimeError& error) {
            CurrentError = error;
        }
        cancelled_ = false;
        switch (HandleRuntimeError(true)) {
            case error_answer::Repeat: continue;
            case error_answer::Next: return;
            case error_answer::Cancelled: cancelled_ = true; return;
            default: left_ = true;
        }
    }
}

}  // namespace tarvokol
