#include "cli/output_target.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>

#include "core/runtime/file_system.h"
#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol::cli {
namespace {

std::string LowerExtension(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) {
        return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
    });
    return extension;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

}  // namespace

OutputTarget::OutputTarget(const Options& options, std::vector<std::string> extensions)
    : output_(options.output), force_(options.force) {
    if (output_.empty()) return;
    folder_ = EndsInSeparator(output_) || FolderExists(output_);
    if (folder_) {
        format_ = options.json && std::count(extensions.begin(), extensions.end(), ".json") > 0 ? ".json"
                  : extensions.empty()                                                          ? ""
                                       : extensions.front();
        return;
    }
    if (options.files.size() > 1)
        throw UsageError{"-o: one output file for several projects; name a folder instead"};
    format_ = LowerExtension(output_);
    if (!extensions.empty() && std::count(extensions.begin(), extensions.end(), format_) == 0)
        throw UsageError{"-o: the extension must be one of " + Joined(extensions)};
}

std::string OutputTarget::PathFor(const std::string& project, const std::string& kept_name) const {
    if (!folder_) return output_;
    const std::filesystem::path name = std::filesystem::path(project).filename();
    std::string file = kept_name;
    if (file.empty()) file = format_.empty() ? name.string() : name.stem().string() + format_;
    return WithSeparator(output_) + file;
}

void OutputTarget::Prepare(const std::string& path) const {
    std::error_code failure;
    if (FolderExists(path)) throw OutputError{error_number::PathFileAccess, path + ": is a folder"};
    if (!force_ && std::filesystem::exists(path, failure) && std::filesystem::is_regular_file(path, failure))
        throw OutputError{error_number::FileAlreadyExists,
                          path + ": file already exists (--force replaces it)"};
    if (folder_) std::filesystem::create_directories(output_, failure);
}

void OutputTarget::Write(const std::string& path,
                         const std::function<void(const std::string&)>& write) const {
    Prepare(path);
    try {
        write(path);
    } catch (const RunTimeError& error) {
        throw OutputError{error.number, path + ": " + error.text};
    }
}

void OutputTarget::WriteBytes(const std::string& path, const std::string& bytes) const {
    Write(path, [&bytes](const std::string& name) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "wb"),
                                                                   std::fclose);
        if (!file) Raise(ErrorNumberOfErrno(errno, name));
        if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
            std::fflush(file.get()) != 0)
            Raise(ErrorNumberOfErrno(errno, name));
    });
}

}  // namespace tarvokol::cli
