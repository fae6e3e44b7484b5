// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/descriptor.h"

#include <cerrno>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr std::size_t kCopyPiece = std::size_t{64} * 1024;

// The system's call again for as long as only a signal has broken it off.
template <typename Call>
ssize_t Uninterrupted(const Call& call) {
    ssize_t count = call();
    while (count < 0 && errno == EINTR) count = call();
    return count;
}

}  // namespace

Descriptor::Descriptor(std::string path, int flags, mode_t rights) : path_(std::move(path)) {
    number_ = ::open(path_.c_str(), flags | O_NONBLOCK | O_CLOEXEC, rights);
    // A socket, and a pipe that nobody reads, cannot be opened at all.
    if (number_ < 0) errno == ENXIO ? Raise(error_number::PathFileAccess) : RaiseErrno(errno);
    const int failure = ::fstat(number_, &status_) != 0 ? errno : 0;
    if (failure == 0 && S_ISREG(status_.st_mode)) return;
    ::close(number_);
    failure != 0 ? RaiseErrno(failure) : Raise(error_number::PathFileAccess);
}

Descriptor::~Descriptor() {
    if (number_ >= 0) ::close(number_);
}

void Descriptor::RaiseErrno(int error) const {
    Raise(ErrorNumberOfErrno(error, path_));
}

std::size_t Descriptor::Read(char* buffer, std::size_t size) {
    const ssize_t count = Uninterrupted([&] { return ::read(number_, buffer, size); });
    if (count < 0) RaiseErrno(errno);
    return static_cast<std::size_t>(count);
}

std::size_t Descriptor::ReadAt(char* buffer, std::size_t size, off_t offset) const {
    const ssize_t count = Uninterrupted([&] { return ::pread(number_, buffer, size, offset); });
    if (count < 0) RaiseErrno(errno);
    return static_cast<std::size_t>(count);
}

void Descriptor::Write(std::string_view bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const std::string_view rest = bytes.substr(written);
        const ssize_t count = Uninterrupted([&] { return ::write(number_, rest.data(), rest.size()); });
        if (count <= 0) {
            const int failure = count < 0 ? errno : ENOSPC;
            ::lseek(number_, -static_cast<off_t>(written), SEEK_CUR);
            RaiseErrno(failure);
        }
        written += static_cast<std::size_t>(count);
    }
}

void Descriptor::Empty() {
    if (::ftruncate(number_, 0) != 0) RaiseErrno(errno);
}

void Descriptor::Rewind() {
    if (::lseek(number_, 0, SEEK_SET) < 0) RaiseErrno(errno);
}

void Descriptor::BeginSync() const noexcept {
    // Only a hint: a system that does not take it brings all of it to the disk in Sync.
    [[maybe_unused]] const int hint = ::sync_file_range(number_, 0, 0, SYNC_FILE_RANGE_WRITE);
}

void Descriptor::Sync() {
    // A file system that keeps nothing on a disk has nothing to bring there.
    if (::fsync(number_) != 0 && errno != EINVAL && errno != ENOTSUP) RaiseErrno(errno);
}

void Descriptor::Close() {
    const int number = std::exchange(number_, -1);
    if (number >= 0 && ::close(number) != 0 && errno != EINTR) RaiseErrno(errno);
}

void CopyContent(Descriptor& source, Descriptor& dest) {
    std::vector<char> piece(kCopyPiece);
    while (const std::size_t count = source.Read(piece.data(), piece.size()))
        dest.Write(std::string_view(piece.data(), count));
}

}  // namespace tarvokol
