// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/failing_files.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvokol {
namespace {

constexpr std::size_t kMostFiles = 65536;

std::string TheFolder;
FileFault TheFault;
std::atomic<bool> Armed{false};
std::atomic<long> SeenCalls{0};
std::atomic<const char*> FailedCall{nullptr};
std::atomic<bool> WriteFailsNext{false};
std::array<std::atomic<bool>, kMostFiles> Watched;

template <typename Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool Below(const char* path) {
    if (!Armed || path == nullptr) return false;
    std::string whole = path;
    if (whole.front() != '/') {
        std::array<char, 4096> folder{};
        if (::getcwd(folder.data(), folder.size()) == nullptr) return false;
        whole = std::string(folder.data()) + "/" + whole;
    }
    return whole.compare(0, TheFolder.size(), TheFolder) == 0;
}

bool IsWatched(int file) {
    return Armed && file >= 0 && static_cast<std::size_t>(file) < kMostFiles &&
           Watched[static_cast<std::size_t>(file)];
}

void Watch(int file, bool on) {
    if (file >= 0 && static_cast<std::size_t>(file) < kMostFiles)
        Watched[static_cast<std::size_t>(file)] = on;
}

enum class Verdict { Proceed, Fail, Half };

// Counts a call and says what becomes of it.
Verdict Judge(const char* name, bool writes = false) {
    const long number = ++SeenCalls;
    if (const auto lacking = TheFault.missing.find(name); lacking != TheFault.missing.end()) {
        errno = lacking->second;
        return Verdict::Fail;
    }
    if (writes && WriteFailsNext.exchange(false)) {
        errno = TheFault.error;
        return Verdict::Fail;
    }
    if (TheFault.refused_at == number) {
        errno = EACCES;
        return Verdict::Fail;
    }
    if (TheFault.at <= 0 || number < TheFault.at) return Verdict::Proceed;
    const bool lasts = TheFault.kind == FaultKind::Forever || TheFault.kind == FaultKind::Full;
    if (number > TheFault.at && !lasts) return Verdict::Proceed;
    if (TheFault.kind == FaultKind::Full && !writes) return Verdict::Proceed;
    const char* none = nullptr;
    FailedCall.compare_exchange_strong(none, name);
    if (TheFault.kind == FaultKind::Kill) ::raise(SIGKILL);
    if (TheFault.kind == FaultKind::Interrupt) {
        ::raise(SIGINT);
        return Verdict::Proceed;
    }
    if (TheFault.kind == FaultKind::Half && writes) {
        WriteFailsNext = true;
        return Verdict::Half;
    }
    errno = TheFault.error;
    return Verdict::Fail;
}

bool Fails(const char* name) {
    return Judge(name) == Verdict::Fail;
}

void Arm(const FileFault& fault) {
    TheFolder = fault.folder;
    TheFault = fault;
    SeenCalls = 0;
    FailedCall = nullptr;
    WriteFailsNext = false;
    Armed = !fault.folder.empty();
}

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

FaultKind KindNamed(const std::string& name) {
    if (name == "forever") return FaultKind::Forever;
    if (name == "full") return FaultKind::Full;
    if (name == "half") return FaultKind::Half;
    if (name == "interrupt") return FaultKind::Interrupt;
    return name == "kill" ? FaultKind::Kill : FaultKind::Once;
}

// The orders of a program that this library was loaded in front of.
class Orders {
  public:
    Orders() {
        FileFault fault;
        fault.folder = Environment("TARVOKOL_FAULT_FOLDER");
        if (fault.folder.empty()) return;
        fault.at = std::atol(Environment("TARVOKOL_FAULT_AT").c_str());
        fault.error = std::atoi(Environment("TARVOKOL_FAULT_ERROR").c_str());
        fault.kind = KindNamed(Environment("TARVOKOL_FAULT_KIND"));
        Arm(fault);
    }
    Orders(const Orders&) = delete;
    Orders& operator=(const Orders&) = delete;
    ~Orders() {
        const std::string path = Environment("TARVOKOL_FAULT_COUNT");
        if (!Armed || path.empty()) return;
        Armed = false;
        if (std::FILE* file = std::fopen(path.c_str(), "w")) {
            const char* failed = FailedCall;
            std::fprintf(file, "%ld %s\n", SeenCalls.load(), failed == nullptr ? "" : failed);
            std::fclose(file);
        }
    }
};

const Orders TheOrders;

std::vector<FileStep> TheSteps;

bool Records() {
    return Armed && TheFault.record;
}

std::uint64_t NumberOf(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 ? status.st_ino : 0;
}

std::uint64_t NumberOf(const char* path) {
    struct stat status {};
    return ::lstat(path, &status) == 0 ? status.st_ino : 0;
}

void NoteOpened(int file, const char* path, int flags, bool was_there) {
    if (!Records() || file < 0) return;
    if (!was_there && (flags & O_CREAT) != 0)
        TheSteps.push_back({.kind = FileStep::Kind::Create, .file = NumberOf(file), .path = path});
    if (was_there && (flags & O_TRUNC) != 0)
        TheSteps.push_back({.kind = FileStep::Kind::Truncate, .file = NumberOf(file), .path = path});
}

void NoteWritten(int file, const void* buffer, ssize_t size) {
    if (!Records() || !IsWatched(file) || size <= 0) return;
    TheSteps.push_back(
        {.kind = FileStep::Kind::Write,
         .file = NumberOf(file),
         .bytes = std::string(static_cast<const char*>(buffer), static_cast<std::size_t>(size))});
}

void NoteTruncated(int file, std::uint64_t size) {
    if (Records() && IsWatched(file))
        TheSteps.push_back({.kind = FileStep::Kind::Truncate, .file = NumberOf(file), .size = size});
}

void NoteSynced(int file) {
    struct stat status {};
    if (!Records() || !IsWatched(file) || ::fstat(file, &status) != 0) return;
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (::readlink(link.c_str(), path.data(), path.size() - 1) < 0) return;
    const bool is_folder = S_ISDIR(status.st_mode);
    TheSteps.push_back({.kind = is_folder ? FileStep::Kind::SyncFolder : FileStep::Kind::Sync,
                        .file = status.st_ino,
                        .path = path.data()});
}

// A change of names; `number` is that of the file before it.
int Noted(int result, FileStep::Kind kind, std::uint64_t number, const char* path, const char* to) {
    if (Records() && result == 0) TheSteps.push_back({.kind = kind, .file = number, .path = path, .to = to});
    return result;
}

int Opened(const char* name, const char* path, int flags, mode_t rights) {
    using Open = int (*)(const char*, int, ...);
    const bool counts = Below(path) && (flags & O_DIRECTORY) == 0;
    if (counts && Fails("open")) return -1;
    const bool was_there = counts && Records() && NumberOf(path) != 0;
    const int file = Real<Open>(name)(path, flags, rights);
    Watch(file, Below(path));
    if (counts) NoteOpened(file, path, flags, was_there);
    return file;
}

// The rights are there only where a file may be created.
mode_t RightsOf(int flags, va_list rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(rest, int)) : 0;
}

template <typename Write>
ssize_t Written(int file, std::size_t size, const Write& write) {
    if (!IsWatched(file)) return write(size);
    switch (Judge("write", true)) {
        case Verdict::Fail:
            return -1;
        case Verdict::Half:
            return write(size > 1 ? size / 2 : size);
        default:
            return write(size);
    }
}

}  // namespace

FailingFiles::FailingFiles(const FileFault& fault) {
    TheSteps.clear();
    Arm(fault);
}

FailingFiles::~FailingFiles() {
    Armed = false;
}

long FailingFiles::Seen() const {
    return SeenCalls;
}

const std::vector<FileStep>& FailingFiles::Steps() const {
    return TheSteps;
}

std::string FailingFiles::Failed() const {
    const char* name = FailedCall;
    return name == nullptr ? "" : name;
}

}  // namespace tarvokol

using namespace tarvokol;

// The calls of the C library, in front of it.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = RightsOf(flags, rest);
    va_end(rest);
    return Opened("open", path, flags, rights);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = RightsOf(flags, rest);
    va_end(rest);
    return Opened("open64", path, flags, rights);
}

// What a hardened build makes of a call that gives no rights.
int __open_2(const char* path, int flags) {
    return Opened("__open_2", path, flags, 0);
}

int __open64_2(const char* path, int flags) {
    return Opened("__open64_2", path, flags, 0);
}

// Only where it is missing: a lock is no operation on the file's content.
int flock(int file, int operation) {
    if (const auto lacking = TheFault.missing.find("flock");
        IsWatched(file) && lacking != TheFault.missing.end()) {
        errno = lacking->second;
        return -1;
    }
    return Real<int (*)(int, int)>("flock")(file, operation);
}

ssize_t read(int file, void* buffer, size_t size) {
    if (IsWatched(file) && Fails("read")) return -1;
    return Real<ssize_t (*)(int, void*, size_t)>("read")(file, buffer, size);
}

ssize_t __read_chk(int file, void* buffer, size_t size, size_t) {
    return read(file, buffer, size);
}

ssize_t pread(int file, void* buffer, size_t size, off_t offset) {
    if (IsWatched(file) && Fails("read")) return -1;
    return Real<ssize_t (*)(int, void*, size_t, off_t)>("pread")(file, buffer, size, offset);
}

ssize_t __pread_chk(int file, void* buffer, size_t size, off_t offset, size_t) {
    return pread(file, buffer, size, offset);
}

ssize_t write(int file, const void* buffer, size_t size) {
    return Written(file, size, [&](size_t count) {
        const ssize_t written = Real<ssize_t (*)(int, const void*, size_t)>("write")(file, buffer, count);
        NoteWritten(file, buffer, written);
        return written;
    });
}

// What was closed is closed, also where the call tells a failure.
int close(int file) {
    const bool fails = IsWatched(file) && Fails("close");
    const int error = errno;
    Watch(file, false);
    const int result = Real<int (*)(int)>("close")(file);
    if (!fails) return result;
    errno = error;
    return -1;
}

int fsync(int file) {
    if (IsWatched(file) && Fails("fsync")) return -1;
    const int result = Real<int (*)(int)>("fsync")(file);
    if (result == 0) NoteSynced(file);
    return result;
}

int ftruncate(int file, off_t size) noexcept {
    if (IsWatched(file) && Fails("truncate")) return -1;
    NoteTruncated(file, static_cast<std::uint64_t>(size));
    return Real<int (*)(int, off_t)>("ftruncate")(file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    if (IsWatched(file) && Fails("truncate")) return -1;
    NoteTruncated(file, static_cast<std::uint64_t>(size));
    return Real<int (*)(int, off64_t)>("ftruncate64")(file, size);
}

int rename(const char* from, const char* to) noexcept {
    const bool counts = Below(from) || Below(to);
    if (counts && Fails("rename")) return -1;
    const std::uint64_t number = NumberOf(from);
    const int result = Real<int (*)(const char*, const char*)>("rename")(from, to);
    return counts ? Noted(result, FileStep::Kind::Rename, number, from, to) : result;
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
    const bool counts = Below(from) || Below(to);
    if (counts && Fails("renameat2")) return -1;
    using Rename = int (*)(int, const char*, int, const char*, unsigned);
    const std::uint64_t number = NumberOf(from);
    const int result = Real<Rename>("renameat2")(from_folder, from, to_folder, to, flags);
    return counts ? Noted(result, FileStep::Kind::Rename, number, from, to) : result;
}

int link(const char* from, const char* to) noexcept {
    const bool counts = Below(from) || Below(to);
    if (counts && Fails("link")) return -1;
    const int result = Real<int (*)(const char*, const char*)>("link")(from, to);
    return counts ? Noted(result, FileStep::Kind::Link, NumberOf(from), from, to) : result;
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
    if (IsWatched(file) && Fails("chown")) return -1;
    return Real<int (*)(int, uid_t, gid_t)>("fchown")(file, owner, group);
}

int fchmod(int file, mode_t rights) noexcept {
    if (IsWatched(file) && Fails("chmod")) return -1;
    return Real<int (*)(int, mode_t)>("fchmod")(file, rights);
}

int unlink(const char* path) noexcept {
    if (!Below(path)) return Real<int (*)(const char*)>("unlink")(path);
    if (Fails("unlink")) return -1;
    const std::uint64_t number = NumberOf(path);
    return Noted(Real<int (*)(const char*)>("unlink")(path), FileStep::Kind::Remove, number, path, "");
}

int remove(const char* path) noexcept {
    if (!Below(path)) return Real<int (*)(const char*)>("remove")(path);
    if (Fails("unlink")) return -1;
    const std::uint64_t number = NumberOf(path);
    return Noted(Real<int (*)(const char*)>("remove")(path), FileStep::Kind::Remove, number, path, "");
}

int mkdir(const char* path, mode_t rights) noexcept {
    if (Below(path) && Fails("mkdir")) return -1;
    return Real<int (*)(const char*, mode_t)>("mkdir")(path, rights);
}

// Streams call the kernel past the functions above, so their own functions stand for it.
FILE* fopen(const char* path, const char* mode) {
    const bool counts = Below(path);
    if (counts && Fails("open")) return nullptr;
    FILE* stream = Real<FILE* (*)(const char*, const char*)>("fopen")(path, mode);
    if (stream != nullptr) Watch(::fileno(stream), counts);
    return stream;
}

FILE* fopen64(const char* path, const char* mode) {
    return fopen(path, mode);
}

size_t fwrite(const void* buffer, size_t size, size_t count, FILE* stream) {
    const auto write = [&](size_t part) {
        return Real<size_t (*)(const void*, size_t, size_t, FILE*)>("fwrite")(buffer, size, part, stream);
    };
    if (!IsWatched(::fileno(stream))) return write(count);
    switch (Judge("write", true)) {
        case Verdict::Fail:
            return 0;
        case Verdict::Half:
            return write(count / 2);
        default:
            return write(count);
    }
}

int fputs(const char* text, FILE* stream) {
    if (IsWatched(::fileno(stream)) && Judge("write", true) != Verdict::Proceed) return EOF;
    return Real<int (*)(const char*, FILE*)>("fputs")(text, stream);
}

size_t fread(void* buffer, size_t size, size_t count, FILE* stream) {
    if (IsWatched(::fileno(stream)) && Fails("read")) return 0;
    return Real<size_t (*)(void*, size_t, size_t, FILE*)>("fread")(buffer, size, count, stream);
}

int fflush(FILE* stream) {
    if (stream != nullptr && IsWatched(::fileno(stream)) && Judge("write", true) != Verdict::Proceed)
        return EOF;
    return Real<int (*)(FILE*)>("fflush")(stream);
}

int fclose(FILE* stream) {
    const int file = ::fileno(stream);
    const bool fails = IsWatched(file) && Fails("close");
    const int error = errno;
    Watch(file, false);
    const int result = Real<int (*)(FILE*)>("fclose")(stream);
    if (!fails) return result;
    errno = error;
    return EOF;
}
}
