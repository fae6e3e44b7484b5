// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_image.h"

#include <array>
#include <ctime>

#include <sys/stat.h>

#include "core/files/whole_file.h"
#include "core/runtime/check_sum.h"

namespace tarvokol {
namespace {

std::optional<struct stat> StatusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return status;
}

}  // namespace

std::optional<FileImage> ImageOf(const std::string& path, std::size_t max_bytes) {
    const auto status = StatusOf(path);
    if (!status) return std::nullopt;
    FileImage image{static_cast<std::uint64_t>(status->st_size), 0, status->st_mtime};
    if (image.size > max_bytes) {
        image.sum = static_cast<std::uint64_t>(image.changed);
        return image;
    }
    std::string bytes;
    if (ReadWholeFile(path, max_bytes, bytes) != ReadOutcome::Read) return std::nullopt;
    image.size = bytes.size();
    image.sum = CheckSum(bytes);
    return image;
}

FileImage ImageOfWritten(const std::string& path, std::string_view bytes) {
    const auto status = StatusOf(path);
    return {bytes.size(), CheckSum(bytes), status ? status->st_mtime : std::time(nullptr)};
}

bool HoldTheSame(const FileImage& one, const FileImage& other) {
    return one.size == other.size && one.sum == other.sum;
}

std::optional<std::int64_t> TimeOfChange(const std::string& path) {
    const auto status = StatusOf(path);
    if (!status) return std::nullopt;
    return status->st_mtime;
}

std::string LocalTimeText(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    std::array<char, 64> text{};
    if (::localtime_r(&time, &parts) == nullptr) return "";
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts)};
}

}  // namespace tarvokol
