// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/error_classes.h"

#include <string>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

std::string ErrorSentence(const RunTimeError& error) {
    return "Error occurred: " + error.text + " (" + std::to_string(error.number) + ")";
}

void LogError(const RunTimeError& error, ErrorClass error_class) {
    if (error_class == ErrorClass::Cancelled)
        LogMessage(error.text);
    else
        LogMessage("Error " + SignedText(error.number) + ":" + error.text);
}

int16_t AskRetry(const RunTimeError& error, bool show_message) {
    if (!show_message) return error_answer::Next;
    const int answer = Notify(ErrorSentence(error), box_style::RetryCancel, ErrorTitle);
    return answer == box_result::Retry ? error_answer::Repeat : error_answer::Next;
}

int16_t ReportTerminated(const RunTimeError& error, bool show_message, int16_t answer) {
    if (show_message) Notify(ErrorSentence(error) + ". Procedure Terminated", box_style::Plain, ErrorTitle);
    return answer;
}

}  // namespace

ErrorClass ClassOfError(int number) {
    switch (number) {
        case error_number::PrinterError:
        case error_number::PrinterProperty:
        case error_number::PrinterInformation:
            return ErrorClass::Printer;
        case error_number::DeviceTimeout:
        case error_number::DeviceFault:
        case error_number::OutOfPaper:
        case error_number::FileNotFound:
        case error_number::DeviceIo:
        case error_number::DiskFull:
        case error_number::InputPastEnd:
        case error_number::PermissionDenied:
        case error_number::DiskNotReady:
        case error_number::DiskMedia:
            return ErrorClass::Device;
        case error_number::InvalidCall:
        case error_number::Overflow:
        case error_number::OutOfMemory:
            return ErrorClass::Call;
        case error_number::BadFileNumber:
        case error_number::FileAlreadyOpen:
        case error_number::BadFileName:
        case error_number::DeviceUnavailable:
        case error_number::PathFileAccess:
        case error_number::PathNotFound:
            return ErrorClass::File;
        case error_number::Cancelled:
            return ErrorClass::Cancelled;
        case error_number::DatabaseCommand:
            return ErrorClass::Database;
        default:
            return ErrorClass::Unexpected;
    }
}

int16_t HandleRuntimeError(const RunTimeError& error, bool showMessage) {
    const ErrorClass error_class = ClassOfError(error.number);
    if (showMessage) LogError(error, error_class);
    switch (error_class) {
        case ErrorClass::Printer:
        case ErrorClass::Device:
            return AskRetry(error, showMessage);
        case ErrorClass::Call:
        case ErrorClass::File:
        case ErrorClass::Unexpected:
            return ReportTerminated(error, showMessage, error_answer::Leave);
        case ErrorClass::Cancelled:
            return error_answer::Cancelled;
        case ErrorClass::Database:
            return ReportTerminated(error, showMessage, error_answer::LeaveDatabase);
    }
    return error_answer::Leave;
}

int16_t HandleRuntimeError(bool showMessage) {
    return HandleRuntimeError(CurrentError, showMessage);
}

}  // namespace tarvokol
