// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/unfinished_files.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/files/file_system.h"
#include "core/files/os_errors.h"
#include "core/files/running_process.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr std::string_view kPrefix = ".tarvokol-";
constexpr mode_t kOwnFolder = 0700;

// Something unfinished, where a signal handler finds it: in memory that is never given back.
struct Entry {
    enum State { Free, Filling, Ready };
    std::atomic<int> state{Free};
    std::array<char, 4096> path{};
};

// No command builds more at once; one that has no place here is left to the next look into its folder.
std::array<Entry, 16> Entries;

void Enter(const std::string& path) {
    for (Entry& entry : Entries) {
        int free = Entry::Free;
        if (path.size() >= entry.path.size() || !entry.state.compare_exchange_strong(free, Entry::Filling))
            continue;
        path.copy(entry.path.data(), path.size());
        entry.path[path.size()] = '\0';
        entry.state = Entry::Ready;
        return;
    }
}

// Creates an empty file where none stands, and leaves it open in `file`. Returns the error of the system, 0 for none.
int CreateNew(const std::string& path, mode_t rights, int& file) {
    file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights);
    return file < 0 ? errno : 0;
}

// What a name of a file or a folder that was being built says.
std::optional<pid_t> BuilderNamedBy(std::string_view name) {
    if (!name.starts_with(kPrefix)) return std::nullopt;
    name.remove_prefix(kPrefix.size());
    pid_t process = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), process);
    const std::string_view rest = name.substr(static_cast<std::size_t>(end - name.data()));
    if (failure != std::errc() || process <= 0 || rest.size() < 2 || rest[0] != '-') return std::nullopt;
    return rest[1] >= '0' && rest[1] <= '9' ? std::optional(process) : std::nullopt;
}

bool IsResidue(const std::filesystem::path& path) {
    const auto builder = BuilderNamedBy(path.filename().string());
    struct stat status {};
    if (!builder || ::lstat(path.c_str(), &status) != 0 || status.st_uid != ::geteuid()) return false;
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) return false;
    // A process of another machine, or of another system on this one, is known by its lock alone.
    return !MayHaveWritten(*builder, status.st_mtime) && !FileLock(path.string()).HeldElsewhere();
}

std::vector<std::filesystem::path> ResiduesIn(const std::string& folder) {
    std::vector<std::filesystem::path> residues;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure))
        if (IsResidue(entry->path())) residues.push_back(entry->path());
    return residues;
}

// When a folder may be looked at again: the looks into a folder of many files take a small part of the time only.
class Looks {
  public:
    // Looks, unless it is too early.
    void Into(const std::string& folder) {
        using Clock = std::chrono::steady_clock;
        constexpr int kPart = 100;
        const std::lock_guard<std::mutex> alone(mutex_);
        const auto begin = Clock::now();
        Clock::time_point& next = next_[folder];
        if (begin < next) return;
        RemoveResidues(folder);
        next = Clock::now() + kPart * (Clock::now() - begin);
    }

  private:
    std::mutex mutex_;
    std::map<std::string, std::chrono::steady_clock::time_point> next_;
};

std::string OwnStart(const std::string& folder) {
    return WithSeparator(folder) + std::string(kPrefix) + std::to_string(ProcessNumber()) + "-";
}

// Makes a folder under a free name of this process's own; it is entered before it is there.
std::string MadeFolder() {
    const std::string start = OwnStart(TemporaryFolder());
    for (int number = 1;; ++number) {
        std::string path = start + std::to_string(number);
        Enter(path);
        if (::mkdir(path.c_str(), kOwnFolder) == 0) return path;
        const int failure = errno;
        ForgetUnfinishedFile(path);
        if (failure != EEXIST) Raise(ErrorNumberOfErrno(failure, path));
    }
}

}  // namespace

int CreateUnfinishedFile(const std::string& folder, const std::string& ending, mode_t rights,
                         UnfinishedFile& file) {
    static Looks looks;
    looks.Into(folder);
    const std::string start = OwnStart(folder);
    for (int number = 1;; ++number) {
        std::string path = start;
        path.append(std::to_string(number)).append(ending);
        // Before it is there: a signal may come at once. A name with this process's number is nobody else's.
        Enter(path);
        int descriptor = -1;
        const int failure = CreateNew(path, rights, descriptor);
        if (failure == 0) {
            file = {std::move(path), FileLock(descriptor)};
            return 0;
        }
        ForgetUnfinishedFile(path);
        if (failure != EEXIST) return failure;
    }
}

int CreateFreeFile(const std::string& start, const std::string& ending, mode_t rights, std::string& path) {
    for (int number = 1;; ++number) {
        path = start;
        path.append(std::to_string(number)).append(ending);
        int descriptor = -1;
        const int failure = CreateNew(path, rights, descriptor);
        if (failure == 0) ::close(descriptor);
        if (failure != EEXIST) return failure;
    }
}

// One entry of it: the first try for a free name may have been that of another file.
void ForgetUnfinishedFile(const std::string& path) {
    for (Entry& entry : Entries) {
        if (entry.state != Entry::Ready || path != entry.path.data()) continue;
        entry.state = Entry::Free;
        return;
    }
}

// The files first: a folder of them must be empty.
void RemoveUnfinishedFiles() noexcept {
    for (Entry& entry : Entries)
        if (entry.state == Entry::Ready) ::unlink(entry.path.data());
    for (Entry& entry : Entries)
        if (entry.state == Entry::Ready) ::rmdir(entry.path.data());
}

void RemoveResidues(const std::string& folder) {
    std::error_code ignored;
    for (const std::filesystem::path& residue : ResiduesIn(folder))
        std::filesystem::remove_all(residue, ignored);
}

ScratchFolder::ScratchFolder(const std::string& name) {
    RemoveResidues(TemporaryFolder());
    folder_ = MadeFolder();
    file_ = WithSeparator(folder_) + name;
    Enter(file_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    ForgetUnfinishedFile(file_);
    ForgetUnfinishedFile(folder_);
}

std::string TemporaryFolder() {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
    if (!failure) return folder.string();
    for (const char* usual : {"/tmp", "/var/tmp"})
        if (FolderExists(usual)) return usual;
    Raise(error_number::PathNotFound);
}

}  // namespace tarvokol
