#include "qt/picture_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>

#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

[[noreturn]] void RaiseErrno(const std::string& path) {
    Raise(ErrorNumberOfErrno(errno, path));
}

}  // namespace

void WritePictureFile(const std::string& path, const QByteArray& bytes) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (!file) RaiseErrno(path);
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, file.get()) != size) RaiseErrno(path);
    if (std::fclose(file.release()) != 0) RaiseErrno(path);
}

}  // namespace tarvokol
