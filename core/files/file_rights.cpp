// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_rights.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <vector>

#include <sys/xattr.h>
#include <unistd.h>

#include "core/files/descriptor.h"

namespace tarvokol {
namespace {

constexpr mode_t kAllRights = 07777;
constexpr mode_t kRightsOfUsers = 0777;
constexpr mode_t kRightsOfOthers = 07;
constexpr mode_t kRightsOfGroup = 070;
constexpr const char* kAccessList = "system.posix_acl_access";

constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
constexpr gid_t kSameGroup = static_cast<gid_t>(-1);

std::vector<std::string> AttributesOf(const std::string& path) {
    const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
    if (size <= 0) return {};
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t filled = ::listxattr(path.c_str(), names.data(), names.size());
    std::vector<std::string> attributes;
    for (std::size_t at = 0; filled > 0 && at < static_cast<std::size_t>(filled);) {
        attributes.emplace_back(names.c_str() + at);
        at += attributes.back().size() + 1;
    }
    return attributes;
}

// The system sets them itself, by the rules of the place or for the program that a file is.
bool IsTheSystems(std::string_view attribute) {
    return attribute.starts_with("security.") || attribute.starts_with("trusted.");
}

bool CopyAttribute(const std::string& path, const std::string& attribute, int file) {
    const ssize_t size = ::getxattr(path.c_str(), attribute.c_str(), nullptr, 0);
    if (size < 0) return false;
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t filled = ::getxattr(path.c_str(), attribute.c_str(), value.data(), value.size());
    return filled == size &&
           ::fsetxattr(file, attribute.c_str(), value.data(), static_cast<std::size_t>(size), 0) == 0;
}

// A new file may have one by the rules of its folder.
bool DropAccessList(int file) {
    return ::fremovexattr(file, kAccessList) == 0 || errno == ENODATA || errno == ENOTSUP;
}

// The rights with no more for the group than for all others.
mode_t WithoutGroup(mode_t rights) {
    return rights & (~kRightsOfGroup | (rights & kRightsOfOthers) << 3);
}

bool TakeAttributes(const std::string& path, int file) {
    const std::vector<std::string> attributes = AttributesOf(path);
    const bool has_list = std::count(attributes.begin(), attributes.end(), kAccessList) > 0;
    bool kept = has_list || DropAccessList(file);
    for (const std::string& attribute : attributes)
        if (!CopyAttribute(path, attribute, file) && !IsTheSystems(attribute)) kept = false;
    return kept;
}

// Owner and group one after the other: to give a file to a group of the user's own is allowed to everybody.
bool TakeOwnerAndGroup(const struct stat& old_status, int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return false;
    bool kept = true;
    if (status.st_gid != old_status.st_gid) kept = ::fchown(file, kSameOwner, old_status.st_gid) == 0;
    if (status.st_uid != old_status.st_uid) kept &= ::fchown(file, old_status.st_uid, kSameGroup) == 0;
    return kept;
}

}  // namespace

std::optional<RightsBound> BoundOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    RightsBound bound{(status.st_mode & kRightsOfUsers) | Descriptor::kOwnersRights, status.st_gid};
    if (::getxattr(path.c_str(), kAccessList, nullptr, 0) > 0) bound.rights = WithoutGroup(bound.rights);
    return bound;
}

int KeepWithin(const RightsBound& bound, int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return errno;
    mode_t allowed = bound.rights;
    if (status.st_gid != bound.group && ::fchown(file, kSameOwner, bound.group) != 0)
        allowed = WithoutGroup(allowed);
    DropAccessList(file);
    const mode_t rights = status.st_mode & kAllRights;
    if ((rights & ~allowed) == 0 || ::fchmod(file, rights & allowed) == 0) return 0;
    return errno == EPERM || errno == ENOTSUP ? 0 : errno;
}

bool TakeOver(const std::string& old_path, const struct stat& old_status, int file) {
    bool kept = TakeOwnerAndGroup(old_status, file);
    kept &= TakeAttributes(old_path, file);
    kept &= ::fchmod(file, old_status.st_mode & kAllRights) == 0;
    return kept;
}

}  // namespace tarvokol
