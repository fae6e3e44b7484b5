// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_replacement.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/descriptor.h"
#include "core/files/file_system.h"
#include "core/files/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr mode_t kAllRights = 07777;
constexpr mode_t kAnyMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kOwnerUses = S_IRUSR | S_IWUSR;

// As many links as the system itself follows.
constexpr int kMostLinks = 40;

// A longer extension is none, and does not fit into the name of a build file with certainty.
constexpr std::size_t kLongestExtension = 16;

constexpr const char* kBuildPrefix = ".tarvokol-";

// A file that is being built, where a signal handler finds it: in memory that is never given back.
struct UnfinishedFile {
    enum State { Free, Filling, Ready };
    std::atomic<int> state{Free};
    std::array<char, 4096> path{};
};

// No command builds more at once; one that has no place here is left to the next look into its folder.
std::array<UnfinishedFile, 16> Unfinished;

void EnterUnfinished(const std::string& path) {
    for (UnfinishedFile& file : Unfinished) {
        int free = UnfinishedFile::Free;
        if (path.size() >= file.path.size() ||
            !file.state.compare_exchange_strong(free, UnfinishedFile::Filling))
            continue;
        path.copy(file.path.data(), path.size());
        file.path[path.size()] = '\0';
        file.state = UnfinishedFile::Ready;
        return;
    }
}

// One entry of it: the first try for a free name may have been that of another file.
void LeaveUnfinished(const std::string& path) {
    for (UnfinishedFile& file : Unfinished) {
        if (file.state != UnfinishedFile::Ready || path != file.path.data()) continue;
        file.state = UnfinishedFile::Free;
        return;
    }
}

// The file that a path names in the end, behind all links, whether it exists or not.
std::string LinkTarget(const std::string& path) {
    std::filesystem::path target = path;
    std::error_code failure;
    for (int i = 0; std::filesystem::is_symlink(target, failure); ++i) {
        if (i == kMostLinks) Raise(error_number::PathNotFound);
        target = target.parent_path() / std::filesystem::read_symlink(target, failure);
    }
    return target.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

std::string ShortExtension(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    return extension.size() <= kLongestExtension ? extension : "";
}

std::string TemporaryFolder() {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
    if (failure) Raise(ErrorNumberOfErrno(failure.value()));
    return folder.string();
}

// True for the refusal of a folder that takes no new file, or of a file that cannot give up its name.
bool FolderRefuses(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Creates an empty file where none stands. Returns the error of the system, 0 for none.
int CreateNew(const std::string& path, mode_t rights) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights);
    if (file < 0) return errno;
    if (::close(file) == 0) return 0;
    const int failure = errno;
    ::unlink(path.c_str());
    return failure == EEXIST ? EIO : failure;
}

// Creates an empty file under a free name in the folder, which begins with `start` and ends with `end`.
// Returns the error of the system, 0 for none.
int CreateFree(const std::string& folder, const std::string& start, const std::string& end, mode_t rights,
               std::string& path) {
    const std::string common = WithSeparator(folder) + start + std::to_string(::getpid()) + "-";
    for (int number = 1;; ++number) {
        path = common;
        path.append(std::to_string(number)).append(end);
        // Before it is there: a signal may come at once. A name with this process's number is nobody else's.
        if (start == kBuildPrefix) EnterUnfinished(path);
        const int failure = CreateNew(path, rights);
        if (failure == 0) return 0;
        LeaveUnfinished(path);
        if (failure != EEXIST) return failure;
    }
}

// Owner and rights of the old file for the new one, which its builder can still write. Only the owner of the
// machine may give a file away, so a refusal is of no account.
void TakeOver(const struct stat& old_status, int file, mode_t added_rights) {
    [[maybe_unused]] const int owner = ::fchown(file, old_status.st_uid, old_status.st_gid);
    [[maybe_unused]] const int mode = ::fchmod(file, (old_status.st_mode & kAllRights) | added_rights);
}

void CopyOnto(const std::string& source, const std::string& dest) {
    Descriptor from(source, O_RDONLY);
    Descriptor to(dest, O_WRONLY);
    to.Empty();
    CopyContent(from, to);
    to.Sync();
    to.Close();
}

// Brings the entries of a folder to the disk. A folder that may not be read cannot be asked to.
void SyncFolder(const std::string& folder) {
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    const int failure = ::fsync(number) == 0 ? 0 : errno;
    ::close(number);
    if (failure != 0 && failure != EINVAL && failure != ENOTSUP) Raise(ErrorNumberOfErrno(failure));
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path) : target_(LinkTarget(path)) {
    ExamineTarget();
    CreateBuildFile();
}

FileReplacement::~FileReplacement() {
    Drop();
}

void FileReplacement::Drop() {
    if (!build_path_.empty()) ::unlink(build_path_.c_str());
    LeaveUnfinished(build_path_);
    build_path_.clear();
}

// What stands in the way is told before anything is built.
void FileReplacement::ExamineTarget() {
    struct stat status {};
    if (::stat(target_.c_str(), &status) != 0) {
        if (errno != ENOENT) Raise(ErrorNumberOfErrno(errno, target_));
        return;
    }
    if (!S_ISREG(status.st_mode)) Raise(error_number::PathFileAccess);
    if ((status.st_mode & kAnyMayWrite) == 0) Raise(error_number::PermissionDenied);
    if (::access(target_.c_str(), W_OK) != 0) Raise(ErrorNumberOfErrno(errno, target_));
    old_status_ = status;
}

int FileReplacement::CreateIn(const std::string& folder) {
    // What replaces a file that others may not read must not be open to them while it grows.
    const mode_t rights = old_status_ ? kOwnerUses : Descriptor::kOrdinaryRights;
    std::string path;
    const int failure = CreateFree(folder, kBuildPrefix, ShortExtension(target_), rights, path);
    if (failure == 0) build_path_ = path;
    return failure;
}

void FileReplacement::CreateBuildFile() {
    const int failure = CreateIn(FolderOf(target_));
    if (failure == 0) return;
    rewrite_ = old_status_ && FolderRefuses(failure);
    if (!rewrite_) Raise(ErrorNumberOfErrno(failure, target_));
    if (const int second = CreateIn(TemporaryFolder())) Raise(ErrorNumberOfErrno(second));
}

void FileReplacement::Fill(std::string_view bytes) {
    Descriptor file(build_path_, O_WRONLY);
    file.Empty();
    file.Write(bytes);
    file.Close();
}

void FileReplacement::FinishBuildFile() const {
    Descriptor file(build_path_, O_RDWR);
    if (old_status_ && !rewrite_) TakeOver(*old_status_, file.Number(), 0);
    file.Sync();
    file.Close();
}

bool FileReplacement::RenameIntoPlace() const {
    if (::rename(build_path_.c_str(), target_.c_str()) == 0) return true;
    if (!old_status_ || !FolderRefuses(errno)) Raise(ErrorNumberOfErrno(errno, target_));
    return false;
}

void FileReplacement::RewriteInPlace() const {
    std::string kept;
    if (const int failure = CreateFree(TemporaryFolder(), "~bak_", ShortExtension(target_), kOwnerUses, kept))
        Raise(ErrorNumberOfErrno(failure));
    bool old_is_kept = false;
    try {
        CopyOnto(target_, kept);
        old_is_kept = true;
        CopyOnto(build_path_, target_);
    } catch (const RunTimeError& error) {
        if (old_is_kept) {
            try {
                CopyOnto(kept, target_);
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
    if (!build_path_.empty()) MoveIntoPlace();
    if (!rewrite_) SyncFolder(FolderOf(target_));
}

void FileReplacement::MoveIntoPlace() {
    FinishBuildFile();
    if (rewrite_ || !RenameIntoPlace()) {
        RewriteInPlace();
        Drop();
    }
    LeaveUnfinished(build_path_);
    build_path_.clear();
}

void RemoveUnfinishedFiles() noexcept {
    for (UnfinishedFile& file : Unfinished)
        if (file.state == UnfinishedFile::Ready) ::unlink(file.path.data());
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
    FileReplacement replacement(path);
    replacement.Fill(bytes);
    replacement.Commit();
}

void CopyWholeFile(const std::string& source, const std::string& dest) {
    Descriptor from(source, O_RDONLY);
    FileReplacement replacement(dest);
    Descriptor to(replacement.BuildPath(), O_WRONLY);
    CopyContent(from, to);
    to.Close();
    replacement.Commit();
}

}  // namespace tarvokol
