// SPDX-License-Identifier: GPL-3.0-or-later
// Locks that end with the process that holds them, however it ends.
#pragma once

#include <string>

namespace tarvokol {

// An open file with a lock on it, which the system takes away with the process. So a file tells whether the process that
// made it still lives; a number alone would not do, since the numbers of processes come again.
class FileLock {
  public:
    // Of no file.
    FileLock() = default;

    // Opens the file, but never a link, and tries to lock it; nothing is waited for.
    explicit FileLock(const std::string& path);

    // Takes over an open file and tries to lock it.
    explicit FileLock(int descriptor);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    bool Held() const { return held_; }

    // Somebody else holds it. False on a file system without locks, where Held is false as well.
    bool HeldElsewhere() const { return held_elsewhere_; }

  private:
    void TryToLock();

    int file_ = -1;
    bool held_ = false;
    bool held_elsewhere_ = false;
};

}  // namespace tarvokol
