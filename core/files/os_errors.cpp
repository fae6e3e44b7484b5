// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/os_errors.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

int ErrorNumberOfErrno(int error) {
    switch (error) {
        case ENOENT:
            return error_number::FileNotFound;
        case EEXIST:
            return error_number::FileAlreadyExists;
        case ENOTDIR:
        case ELOOP:
            return error_number::PathNotFound;
        case EACCES:
        case EPERM:
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
            return error_number::PermissionDenied;
        case EISDIR:
        case EROFS:
            return error_number::PathFileAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return error_number::DiskFull;
        case EMFILE:
        case ENFILE:
            return error_number::TooManyFiles;
        case ENXIO:
        case ENODEV:
            return error_number::DeviceUnavailable;
        case ENOMEM:
            return error_number::OutOfMemory;
        case ENAMETOOLONG:
        case EINVAL:
            return error_number::BadFileNumber;
        default:
            return error_number::DeviceIo;
    }
}

int ErrorNumberOfErrno(int error, const std::string& path) {
    const int number = ErrorNumberOfErrno(error);
    if (number != error_number::FileNotFound) return number;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::error_code ignored;
    if (folder.empty() || std::filesystem::is_directory(folder, ignored)) return number;
    return error_number::PathNotFound;
}

}  // namespace tarvokol
