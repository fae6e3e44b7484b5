// SPDX-License-Identifier: GPL-3.0-or-later
// Run-time errors: the one exception type of the program, with the classical numbers and texts.
#pragma once

#include <exception>
#include <string>

namespace tarvokol {

// Every number that the code raises, tests or sorts into a class; the names follow the texts.
namespace error_number {
constexpr int InvalidCall = 5;
constexpr int Overflow = 6;
constexpr int OutOfMemory = 7;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int TypeMismatch = 13;
constexpr int DeviceTimeout = 24;
constexpr int DeviceFault = 25;
constexpr int OutOfPaper = 27;
constexpr int BadFileNumber = 52;
constexpr int FileNotFound = 53;
constexpr int BadFileMode = 54;
constexpr int FileAlreadyOpen = 55;
constexpr int DeviceIo = 57;
constexpr int FileAlreadyExists = 58;
constexpr int DiskFull = 61;
constexpr int InputPastEnd = 62;
constexpr int BadFileName = 64;
constexpr int TooManyFiles = 67;
constexpr int DeviceUnavailable = 68;
constexpr int PermissionDenied = 70;
constexpr int DiskNotReady = 71;
constexpr int DiskMedia = 72;
constexpr int PathFileAccess = 75;
constexpr int PathNotFound = 76;
constexpr int InvalidPropertyValue = 380;
constexpr int CannotCreateObject = 429;
constexpr int PrinterError = 482;
constexpr int PrinterProperty = 483;
constexpr int PrinterInformation = 484;
constexpr int Cancelled = 32755;
constexpr int DatabaseCommand = -2147217900;
}  // namespace error_number

// A run-time error: its number and its text ("Input past end of file").
class RunTimeError : public std::exception {
  public:
    explicit RunTimeError(int error_number);
    RunTimeError(int error_number, std::string error_text);

    const char* what() const noexcept override { return text.c_str(); }

    int number;
    std::string text;
};

// The text of an error number; numbers without one give "Application-defined or object-defined error".
std::string ErrorText(int number);

// Raises the error with its own text.
[[noreturn]] void Raise(int number);

}  // namespace tarvokol
