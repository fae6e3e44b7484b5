#include "core/messages/error_classes.h"

#include <string>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr int kDatabaseCommandError = -2147217900;

std::string ErrorSentence() {
    return "Error occurred: " + CurrentError.text + " (" + std::to_string(CurrentError.number) + ")";
}

void LogError(ErrorClass error_class) {
    if (error_class == ErrorClass::Cancelled)
        LogMessage(CurrentError.text);
    else
        LogMessage("Error " + SignedText(CurrentError.number) + ":" + CurrentError.text);
}

int16_t AskRetry(bool show_message) {
    if (!show_message) return error_answer::Next;
    const int answer = Notify(ErrorSentence(), box_style::RetryCancel, ErrorTitle);
    return answer == box_result::Retry ? error_answer::Repeat : error_answer::Next;
}

int16_t ReportTerminated(bool show_message, int16_t answer) {
    if (show_message) Notify(ErrorSentence() + ". Procedure Terminated", box_style::Plain, ErrorTitle);
    return answer;
}

}  // namespace

ErrorClass ClassOfError(int number) {
    switch (number) {
        case 482:
        case 483:
        case 484: return ErrorClass::Printer;
        case 24:
        case 25:
        case 27:
        case 53:
        case 57:
        case 61:
        case 62:
        case 70:
        case 71:
        case 72: return ErrorClass::Device;
        case 5:
        case 6:
        case 7: return ErrorClass::Call;
        case 52:
        case 55:
        case 64:
        case 68:
        case 75:
        case 76: return ErrorClass::File;
        case error_number::Cancelled: return ErrorClass::Cancelled;
        case kDatabaseCommandError: return ErrorClass::Database;
        default: return ErrorClass::Unexpected;
    }
}

int16_t HandleRuntimeError(bool showMessage) {
    const ErrorClass error_class = ClassOfError(CurrentError.number);
    if (showMessage) LogError(error_class);
    switch (error_class) {
        case ErrorClass::Printer:
        case ErrorClass::Device: return AskRetry(showMessage);
        case ErrorClass::Call:
        case ErrorClass::File:
        case ErrorClass::Unexpected: return ReportTerminated(showMessage, error_answer::Leave);
        case ErrorClass::Cancelled: return error_answer::Cancelled;
        case ErrorClass::Database: return ReportTerminated(showMessage, error_answer::LeaveDatabase);
    }
    return error_answer::Leave;
}

}  // namespace tarvokol
