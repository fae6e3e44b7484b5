#include "core/runtime/whole_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvokol {
namespace {

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    int Number() const { return number_; }
    bool Valid() const { return number_ >= 0; }

    // Closes now; false if the system reports that something written was lost.
    bool Close() {
        const int number = number_;
        number_ = -1;
        return ::close(number) == 0;
    }

  private:
    int number_;
};

bool WriteAll(int descriptor, const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

// As many links as the system itself follows.
constexpr int kMostLinks = 40;

// The file that a path names in the end, behind all links, whether it exists or not.
std::string LinkTarget(const std::string& path) {
    std::filesystem::path target = path;
    std::error_code failure;
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(target, failure); ++i)
        target = target.parent_path() / std::filesystem::read_symlink(target, failure);
    return target.string();
}

// Mode, owner and group of the old file for the new one. Only the owner of the machine may give a file away,
// so a refusal is of no account.
void KeepAttributes(int descriptor, const struct stat& old_status) {
    [[maybe_unused]] const int owner = ::fchown(descriptor, old_status.st_uid, old_status.st_gid);
    [[maybe_unused]] const int mode = ::fchmod(descriptor, old_status.st_mode & 07777);
}

bool WriteBeside(const std::string& temporary, const std::string& bytes, const struct stat* old_status) {
    ::unlink(temporary.c_str());
    Descriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.Valid()) return false;
    if (old_status != nullptr) KeepAttributes(file.Number(), *old_status);
    const bool written = WriteAll(file.Number(), bytes);
    return file.Close() && written;
}

}  // namespace

ReadOutcome ReadWholeFile(const std::string& path, std::size_t max_bytes, std::string& bytes) {
    bytes.clear();
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.Valid()) return errno == ENOENT ? ReadOutcome::Missing : ReadOutcome::Refused;
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return ReadOutcome::Refused;
    if (static_cast<std::size_t>(status.st_size) > max_bytes) return ReadOutcome::Refused;
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < content.size()) {
        const ssize_t count = ::read(file.Number(), content.data() + filled, content.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return ReadOutcome::Refused;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    content.resize(filled);
    bytes = std::move(content);
    return ReadOutcome::Read;
}

bool ReplaceWholeFile(const std::string& path, const std::string& bytes) {
    const std::string target = LinkTarget(path);
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && (!S_ISREG(status.st_mode) || (status.st_mode & 0222) == 0)) return false;
    if (exists && ::access(target.c_str(), W_OK) != 0) return false;
    const std::string temporary = target + "." + std::to_string(::getpid()) + ".tmp";
    if (WriteBeside(temporary, bytes, exists ? &status : nullptr) &&
        ::rename(temporary.c_str(), target.c_str()) == 0)
        return true;
    ::unlink(temporary.c_str());
    return false;
}

}  // namespace tarvokol
