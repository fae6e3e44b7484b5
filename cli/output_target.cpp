// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output_target.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/runtime/file_replacement.h"
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
    RequireRoomFor(options.files.size());
    if (extensions.empty()) return;
    format_ = LowerExtension(output_);
    if (std::count(extensions.begin(), extensions.end(), format_) == 0)
        throw UsageError{"-o: the extension must be one of " + Joined(extensions)};
}

bool OutputTarget::IsDrawn() const {
    return format_ == ".pdf" || format_ == ".png" || format_ == ".svg" || format_ == ".xlsx";
}

void OutputTarget::RequireRoomFor(std::size_t projects) const {
    if (projects > 1 && ToFile() && !folder_)
        throw UsageError{"-o: one output file for several projects; name a folder instead"};
}

std::string OutputTarget::PathFor(const std::string& project, const std::string& kept_name) const {
    if (!folder_) return output_;
    const std::filesystem::path name = std::filesystem::path(project).filename();
    std::string file = kept_name;
    if (file.empty()) file = format_.empty() ? name.string() : name.stem().string() + format_;
    return WithSeparator(output_) + file;
}

void OutputTarget::MakeFolder() const {
    std::error_code failure;
    std::filesystem::create_directories(output_, failure);
    if (!failure || FolderExists(output_)) return;
    const int number = ErrorNumberOfErrno(failure.value(), output_);
    throw OutputError{number, output_ + ": " + ErrorText(number)};
}

// Makes the folder of the files as well, so that nothing but the file itself is left to fail.
void OutputTarget::Prepare(const std::string& path) const {
    std::error_code failure;
    if (FolderExists(path)) throw OutputError{error_number::PathFileAccess, path + ": is a folder"};
    if (taken_.count(path) != 0)
        throw OutputError{error_number::FileAlreadyExists,
                          path + ": holds the result of another project of the same name"};
    if (!force_ && std::filesystem::is_regular_file(path, failure))
        throw OutputError{error_number::FileAlreadyExists, path + ": file already exists (--force replaces it)"};
    if (folder_) MakeFolder();
}

void OutputTarget::Write(const std::string& path,
                         const std::function<void(const std::string&)>& write) const {
    Prepare(path);
    try {
        write(path);
    } catch (const RunTimeError& error) {
        throw OutputError{error.number, path + ": " + error.text};
    }
    if (folder_) taken_.insert(path);
}

void OutputTarget::WriteBytes(const std::string& path, const std::string& bytes) const {
    Write(path, [&bytes](const std::string& name) { ReplaceWholeFile(name, bytes); });
}

void OutputTarget::WriteProject(const std::string& path) const {
    Write(path, [](const std::string& name) {
        FileReplacement replacement(name);
        ProjectFileName = replacement.BuildPath();
        FileSave();
        ProjectFileName = name;
        replacement.Commit();
    });
}

}  // namespace tarvokol::cli
