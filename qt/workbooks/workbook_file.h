// SPDX-License-Identifier: GPL-3.0-or-later
// What the workbook library leaves to its caller when it writes a file.
#pragma once

#include <csignal>
#include <cstddef>
#include <string>

struct lxw_workbook;
struct lxw_worksheet;

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

// A workbook for the file at `path`, written row by row, so that memory stays flat. Its scratch stands beside it: where that
// has room, the scratch has it, too. Raises "Out of memory".
lxw_workbook* NewWorkbook(const std::string& path);

// A sheet of the workbook, under that name if there is one. Raises the error of the file system where its scratch cannot be made, after the workbook is freed.
lxw_worksheet* NewSheet(lxw_workbook* book, const std::string& path, const char* name = nullptr);

// Writes the workbook and frees it. Raises the error of the file system for one that could not be written,
// and "Disk full" for one that does not read back whole with `cells` cells.
void FinishWorkbook(lxw_workbook* book, const std::string& path, std::size_t cells);

// Frees a workbook by the only way that closes its scratch: it is written, and whatever comes of it ignored.
void DiscardWorkbook(lxw_workbook* book);

}  // namespace tarvokol
