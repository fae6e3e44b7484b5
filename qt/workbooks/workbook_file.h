// SPDX-License-Identifier: GPL-3.0-or-later
// What the workbook library leaves to its caller when it writes a file.
#pragma once

#include <csignal>
#include <cstddef>
#include <string>

struct lxw_workbook;

namespace tarvokol {

// The library prints numbers through the C locale of the thread, which a desktop may have set to a decimal
// comma. While the object lives, the thread has a point.
class PlainNumbers {
  public:
    PlainNumbers();
    ~PlainNumbers();
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

  private:
    void* before_ = nullptr;
};

// The library's scratch has a name for a moment: a signal that ended the process there would leave it behind. While the
// object lives, the signals that a user or the system ends a program with wait for the thread.
class SignalsPutOff {
  public:
    SignalsPutOff();
    ~SignalsPutOff();
    SignalsPutOff(const SignalsPutOff&) = delete;
    SignalsPutOff& operator=(const SignalsPutOff&) = delete;

  private:
    sigset_t before_{};
};

// A workbook for the file at `path`, whose scratch stands beside it: where that has room, the scratch has it,
// too. With `row_by_row` a row is written when the next one begins, so that memory stays flat.
lxw_workbook* NewWorkbook(const std::string& path, bool row_by_row);

// Writes the workbook and frees it. Raises the error of the file system for one that could not be written,
// and "Disk full" for one that does not read back whole with `cells` cells.
void FinishWorkbook(lxw_workbook* book, const std::string& path, std::size_t cells);

// Frees a workbook by the only way that closes its scratch: it is written, and whatever comes of it ignored.
void DiscardWorkbook(lxw_workbook* book);

}  // namespace tarvokol
