// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/links.h"

#include <deque>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// As many links as the system itself follows.
constexpr int kMostLinks = 40;

constexpr uid_t kAdministrator = 0;

bool IsLink(const std::filesystem::path& path, struct stat& status) {
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// A folder that cannot be asked is none to which all may write.
bool AllMayWriteTo(const std::filesystem::path& folder) {
    struct stat status {};
    return ::stat(folder.empty() ? "." : folder.c_str(), &status) == 0 && (status.st_mode & S_IWOTH) != 0;
}

bool IsTrusted(const struct stat& link, const std::filesystem::path& folder) {
    return link.st_uid == ::geteuid() || link.st_uid == kAdministrator || !AllMayWriteTo(folder);
}

}  // namespace

std::string PlaceBehindLinks(const std::string& path) {
    const std::filesystem::path whole = path;
    std::deque<std::filesystem::path> rest(whole.begin(), whole.end());
    std::filesystem::path place;
    for (int links = 0; !rest.empty();) {
        const std::filesystem::path next = place / rest.front();
        rest.pop_front();
        struct stat status {};
        if (!IsLink(next, status)) {
            place = next;
            continue;
        }
        if (!IsTrusted(status, place)) Raise(error_number::PermissionDenied);
        if (++links > kMostLinks) Raise(error_number::PathNotFound);
        std::error_code failure;
        const std::filesystem::path end = std::filesystem::read_symlink(next, failure);
        if (end.is_absolute()) place.clear();
        rest.insert(rest.begin(), end.begin(), end.end());
    }
    return place.string();
}

}  // namespace tarvokol
