// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_lock.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tarvokol {
namespace {

// A network's file system locks only what may be written.
int OpenToLock(const char* path) {
    constexpr int kFlags = O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC;
    const int file = ::open(path, O_RDWR | kFlags);
    return file >= 0 ? file : ::open(path, O_RDONLY | kFlags);
}

}  // namespace

FileLock::FileLock(const std::string& path) : file_(OpenToLock(path.c_str())) {
    TryToLock();
}

FileLock::FileLock(int descriptor) : file_(descriptor) {
    TryToLock();
}

FileLock::FileLock(FileLock&& other) noexcept
    : file_(std::exchange(other.file_, -1)),
      held_(std::exchange(other.held_, false)),
      held_elsewhere_(std::exchange(other.held_elsewhere_, false)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(file_, other.file_);
    std::swap(held_, other.held_);
    std::swap(held_elsewhere_, other.held_elsewhere_);
    return *this;
}

FileLock::~FileLock() {
    if (file_ >= 0) ::close(file_);
}

void FileLock::TryToLock() {
    if (file_ < 0) return;
    held_ = ::flock(file_, LOCK_EX | LOCK_NB) == 0;
    held_elsewhere_ = !held_ && errno == EWOULDBLOCK;
}

}  // namespace tarvokol
