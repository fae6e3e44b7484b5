// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the N-th call of the operating system on files fail. Linked into a test it is driven by the functions
// below; loaded in front of a built program (LD_PRELOAD) it takes its orders from the environment:
//   TARVOKOL_FAULT_FOLDER  folder below which files count, all others are left alone
//   TARVOKOL_FAULT_AT      number of the call that fails, from 1; 0 for none
//   TARVOKOL_FAULT_ERROR   errno that it fails with
//   TARVOKOL_FAULT_KIND    once, forever, full, half, kill or interrupt
//   TARVOKOL_FAULT_COUNT   file that takes the number of calls seen and the name of the one that failed
// Calls that count: open, read, write, close, fsync, truncate, rename, link, unlink, mkdir, chown and chmod of open files, and
// what the standard streams make of them.
#pragma once

#include <cerrno>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvokol {

// More calls than any operation makes that is tested with every one of them failing in turn: where a loop over them comes
// that far, the operation never succeeds, and the loop would not end.
inline constexpr long kMostCalls = 5000;

enum class FaultKind {
    Once,
    Forever,   // that call and all that follow
    Full,      // from that call on every write: a full disk
    Half,      // a write takes half of its bytes, the next write fails; any other call fails once
    Kill,      // the process ends there as by SIGKILL
    Interrupt  // SIGINT comes there; the call is made if the process goes on
};

// A change of a folder or a file, in the order in which the system was asked for it, so that a test can tell what a disk may
// show after a power cut. Files go by their number in the file system, which may come again after one is gone.
struct FileStep {
    enum class Kind { Create, Write, Truncate, Sync, SyncFolder, Rename, Link, Remove };
    Kind kind = Kind::Create;
    std::uint64_t file = 0;
    std::string path{};      // of Create, SyncFolder, Remove; the old one of Rename and Link
    std::string to{};        // of Rename and Link
    std::string bytes{};     // of Write, which goes on where the one before ended
    std::uint64_t size = 0;  // of Truncate
};

struct FileFault {
    std::string folder;
    long at = 0;
    int error = ENOSPC;
    FaultKind kind = FaultKind::Once;
    long refused_at = 0;  // a call before `at` that fails with "no permission"; 0 for none
    std::map<std::string, int>
        missing{};        // calls that the file system does not have, with the error that says so
    bool record = false;  // the steps that were made
};

// The fault holds while the object lives.
class FailingFiles {
  public:
    explicit FailingFiles(const FileFault& fault);
    FailingFiles(const FailingFiles&) = delete;
    FailingFiles& operator=(const FailingFiles&) = delete;
    ~FailingFiles();

    long Seen() const;                           // calls so far
    std::string Failed() const;                  // name of the first call that failed; empty while none has
    const std::vector<FileStep>& Steps() const;  // those below the folder, if they are recorded
};

}  // namespace tarvokol
