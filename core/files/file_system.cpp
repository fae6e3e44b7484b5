// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_system.h"

#include <filesystem>
#include <system_error>

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/files/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {

bool FileExists(const std::string& path) {
    std::error_code failure;
    const auto status = std::filesystem::status(path, failure);
    return !failure && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool FolderExists(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_directory(path, failure) && !failure;
}

std::string WholePath(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path whole =
        std::filesystem::weakly_canonical(std::filesystem::absolute(path, failure), failure);
    return failure ? path : whole.string();
}

void RemoveFile(const std::string& path) {
    std::error_code failure;
    if (!FileExists(path)) return;
    std::filesystem::remove(path, failure);
    if (failure) Raise(ErrorNumberOfErrno(failure.value(), path));
}

// One name for all: what could not be removed once is not joined by another the next time.
void RequireWritableFolder(const std::string& folder) {
    const std::string path = folder + "~tmpprobe.tmp";
    Descriptor(path, O_WRONLY | O_CREAT | O_NOFOLLOW).Close();
    RemoveFile(path);
}

bool EndsInSeparator(const std::string& path) {
    return !path.empty() && (path.back() == '/' || path.back() == '\\');
}

std::string WithSeparator(const std::string& folder) {
    return EndsInSeparator(folder) ? folder : folder + PathSeparator;
}

}  // namespace tarvokol
