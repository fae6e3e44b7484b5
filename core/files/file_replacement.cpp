// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_replacement.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/descriptor.h"
#include "core/files/file_system.h"
#include "core/files/free_name.h"
#include "core/files/links.h"
#include "core/files/os_errors.h"
#include "core/files/running_process.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr mode_t kAnyMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;

// A longer extension is none, and does not fit into the name of a build file with certainty.
constexpr std::size_t kLongestExtension = 16;

constexpr const char* kSeveralNames = "it has several names";
constexpr const char* kOwnerLost = "a new file would not have its owner, group and attributes";

InPlaceListener TheListener;

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

std::string ShortExtension(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    return extension.size() <= kLongestExtension ? extension : "";
}

// True for the refusal of a folder that takes no new file, or of a file that cannot give up its name.
bool FolderRefuses(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Brings the entries of a folder to the disk. A folder that may not be read cannot be asked to.
void SyncFolder(const std::string& folder) {
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    const int failure = ::fsync(number) == 0 ? 0 : errno;
    ::close(number);
    if (failure != 0 && failure != EINVAL && failure != ENOTSUP) Raise(ErrorNumberOfErrno(failure));
}

void CopyOnto(const std::string& source, Descriptor& to) {
    Descriptor from(source, O_RDONLY);
    to.Empty();
    CopyContent(from, to);
    to.Sync();
    to.Close();
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, const ReplacementRules& rules) : rules_(rules) {
    ExamineTarget(path);
    if (!rules_.copy_of.empty() && !IsTarget(rules_.copy_of)) bound_ = BoundOf(rules_.copy_of);
    try {
        CreateBuildFile();
    } catch (const RunTimeError&) {
        Drop();
        throw;
    }
}

FileReplacement::~FileReplacement() {
    Drop();
}

void FileReplacement::Drop() {
    if (!build_.path.empty()) ::unlink(build_.path.c_str());
    ForgetUnfinishedFile(build_.path);
    build_ = {};
}

// What stands in the way is reported before anything is built.
void FileReplacement::ExamineTarget(const std::string& path) {
    const bool refuses = rules_.existing == ReplacementRules::Existing::Refuse;
    struct stat status {};
    const bool is_link = ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    // A link that leads nowhere is something that stands there, too.
    if (refuses && is_link && ::stat(path.c_str(), &status) != 0) Raise(error_number::FileAlreadyExists);
    target_ = PlaceBehindLinks(path);
    if (::stat(target_.c_str(), &status) != 0) {
        if (errno != ENOENT) Raise(ErrorNumberOfErrno(errno, target_));
        return;
    }
    if (!S_ISREG(status.st_mode)) Raise(error_number::PathFileAccess);
    if (refuses) Raise(error_number::FileAlreadyExists);
    if ((status.st_mode & kAnyMayWrite) == 0) Raise(error_number::PermissionDenied);
    if (::access(target_.c_str(), W_OK) != 0) Raise(ErrorNumberOfErrno(errno, target_));
    old_status_ = status;
    if (status.st_nlink > 1) in_place_ = kSeveralNames;
}

// A file that takes its own place is no copy.
bool FileReplacement::IsTarget(const std::string& path) const {
    struct stat status {};
    return old_status_ && ::stat(path.c_str(), &status) == 0 && status.st_dev == old_status_->st_dev &&
           status.st_ino == old_status_->st_ino;
}

int FileReplacement::CreateIn(const std::string& folder) {
    // What replaces a file that others may not read must not be open to them while it grows.
    const mode_t rights = old_status_ ? Descriptor::kOwnersRights : Descriptor::kOrdinaryRights;
    const int failure = CreateUnfinishedFile(folder, ShortExtension(target_), rights, build_);
    if (failure == 0 && bound_) KeepWithinBound(Descriptor(build_.path, O_WRONLY));
    return failure;
}

void FileReplacement::KeepWithinBound(const Descriptor& file) const {
    const int failure = bound_ ? KeepWithin(*bound_, file.Number()) : 0;
    if (failure != 0) Raise(ErrorNumberOfErrno(failure, target_));
}

void FileReplacement::CreateBuildFile() {
    const int failure = CreateIn(FolderOf(target_));
    if (failure == 0) return;
    folder_refuses_ = old_status_ && FolderRefuses(failure);
    if (!folder_refuses_) Raise(ErrorNumberOfErrno(failure, target_));
    if (const int second = CreateIn(TemporaryFolder())) Raise(ErrorNumberOfErrno(second));
}

void FileReplacement::Fill(std::string_view bytes) {
    Descriptor file(build_.path, O_WRONLY);
    file.Empty();
    file.Write(bytes);
    file.Close();
}

void FileReplacement::FinishBuildFile() {
    Descriptor file(build_.path, O_RDWR);
    const bool moves = !folder_refuses_ && in_place_.empty();
    if (moves && old_status_ && !TakeOver(target_, *old_status_, file.Number())) in_place_ = kOwnerLost;
    KeepWithinBound(file);
    file.Sync();
    file.Close();
}

bool FileReplacement::RenameIntoPlace() const {
    const bool free = rules_.existing == ReplacementRules::Existing::Refuse;
    const int failure = free ? RenameToFreeName(build_.path, target_)
                        : ::rename(build_.path.c_str(), target_.c_str()) == 0 ? 0
                                                                              : errno;
    if (failure == 0) return true;
    if (!old_status_ || !FolderRefuses(failure)) Raise(ErrorNumberOfErrno(failure, target_));
    return false;
}

// Where the folder takes a new file, the content that is about to be dropped is kept beside its place, on the same disk.
std::string FileReplacement::CreateOldCopy() const {
    const std::string folder = folder_refuses_ ? TemporaryFolder() : FolderOf(target_);
    std::string kept;
    const std::string start = WithSeparator(folder) + "~bak_" + std::to_string(ProcessNumber()) + "-";
    if (const int failure = CreateFreeFile(start, ShortExtension(target_), Descriptor::kOwnersRights, kept))
        Raise(ErrorNumberOfErrno(failure));
    return kept;
}

void FileReplacement::FillTargetFrom(const std::string& source) const {
    Descriptor to(target_, O_WRONLY);
    KeepWithinBound(to);
    CopyOnto(source, to);
}

void FileReplacement::RewriteInPlace() const {
    const std::string kept = CreateOldCopy();
    bool old_is_kept = false;
    try {
        Descriptor copy(kept, O_WRONLY);
        CopyOnto(target_, copy);
        SyncFolder(FolderOf(kept));
        old_is_kept = true;
        FillTargetFrom(build_.path);
    } catch (const RunTimeError& error) {
        if (old_is_kept) {
            try {
                FillTargetFrom(kept);
            } catch (const RunTimeError&) {
                throw RunTimeError(error.number,
                                   error.text + "; what the file held before is kept in " + kept);
            }
        }
        ::unlink(kept.c_str());
        throw;
    }
    ::unlink(kept.c_str());
}

void FileReplacement::Commit() {
    if (!build_.path.empty()) MoveIntoPlace();
    if (!folder_refuses_) SyncFolder(FolderOf(target_));
}

void FileReplacement::MoveIntoPlace() {
    FinishBuildFile();
    if (folder_refuses_ || !in_place_.empty() || !RenameIntoPlace()) {
        RewriteInPlace();
        Drop();
        build_.lock = FileLock(target_);
        if (!in_place_.empty() && TheListener) TheListener(target_, in_place_);
    }
    ForgetUnfinishedFile(build_.path);
    build_.path.clear();
}

void SetInPlaceListener(InPlaceListener listener) {
    TheListener = std::move(listener);
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes, const ReplacementRules& rules) {
    FileReplacement replacement(path, rules);
    replacement.Fill(bytes);
    replacement.Commit();
}

void CopyWholeFile(const std::string& source, const std::string& dest) {
    Descriptor from(source, O_RDONLY);
    FileReplacement replacement(dest, {.copy_of = source});
    Descriptor to(replacement.BuildPath(), O_WRONLY);
    CopyContent(from, to);
    to.Close();
    replacement.Commit();
}

}  // namespace tarvokol
