// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/free_name.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvokol {
namespace {

// True where a file system has no such call.
bool IsMissingCall(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP || error == EPERM;
}

// Takes the name by an empty file, so that it is nobody else's, and then the empty file's place.
int TakeNameAndRename(const char* from, const char* to) {
    const int file = ::open(to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) return errno;
    ::close(file);
    if (::rename(from, to) == 0) return 0;
    const int failure = errno;
    ::unlink(to);
    return failure;
}

}  // namespace

int RenameToFreeName(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (!IsMissingCall(errno)) return errno;
    if (::link(from.c_str(), to.c_str()) == 0) {
        ::unlink(from.c_str());
        return 0;
    }
    return IsMissingCall(errno) ? TakeNameAndRename(from.c_str(), to.c_str()) : errno;
}

}  // namespace tarvokol
