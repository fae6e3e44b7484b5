// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/output_target.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include <unistd.h>

#include "cli/line/standard_input.h"
#include "cli/line/word_list.h"
#include "core/files/file_system.h"
#include "core/files/os_errors.h"
#include "core/files/unfinished_files.h"
#include "core/files/whole_file.h"
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

constexpr const char* kExists = ": file already exists (--force replaces it)";

}  // namespace

OutputTarget::OutputTarget(const Options& options, const std::vector<std::string>& extensions)
    : output_(options.output), force_(options.force), standard_output_(options.output == kStandardStream) {
    if (output_.empty()) return;
    // A project that is saved again may stand where it was read.
    if (!extensions.empty()) inputs_ = options.files;
    if (standard_output_ && options.json)
        throw UsageError{"-o -: standard output takes the result or, with --json, the objects, not both"};
    folder_ = !standard_output_ && (EndsInSeparator(output_) || FolderExists(output_));
    ChooseFormat(options, extensions);
    RequireRoomFor(options.files.size());
    if (standard_output_ && IsDrawn() && ::isatty(STDOUT_FILENO) != 0)
        throw UsageError{"-o -: a terminal shows no " + format_.substr(1) +
                         "; send it into a file or a pipe"};
}

void OutputTarget::ChooseFormat(const Options& options, const std::vector<std::string>& extensions) {
    if (extensions.empty()) return;
    const auto is_known = [&extensions](const std::string& format) {
        return std::count(extensions.begin(), extensions.end(), format) > 0;
    };
    const std::string asked = options.format.empty() ? "" : '.' + options.format;
    if (folder_) {
        const bool objects = options.json && is_known(".json");
        format_ = !asked.empty() ? asked : objects ? ".json" : extensions.front();
    } else if (standard_output_) {
        format_ = asked;
    } else {
        format_ = LowerExtension(output_);
        if (!is_known(format_)) throw UsageError{"-o: the extension must be one of " + Listed(extensions)};
        if (!asked.empty() && asked != format_)
            throw UsageError{"--format: " + output_ + " has the extension of another format"};
    }
    extension_ = format_;
    if (format_ == ".jsonl") format_ = ".json";
}

bool OutputTarget::IsDrawn() const {
    return format_ == ".pdf" || format_ == ".png" || format_ == ".svg" || format_ == ".xlsx";
}

bool OutputTarget::IsOneTable() const {
    return output_.empty() || (standard_output_ && (format_ == ".csv" || format_ == ".txt"));
}

void OutputTarget::RequireRoomFor(std::size_t projects) const {
    if (projects < 2 || folder_ || IsOneTable()) return;
    throw UsageError{standard_output_
                         ? "-o -: one result on standard output for several projects; name a folder instead"
                         : "-o: one output file for several projects; name a folder instead"};
}

std::string OutputTarget::PathFor(const std::string& project, const std::string& kept_name) const {
    if (!folder_) return output_;
    const std::filesystem::path name = std::filesystem::path(project).filename();
    std::string file = kept_name;
    if (file.empty()) file = format_.empty() ? name.string() : name.stem().string() + extension_;
    return WithSeparator(output_) + file;
}

void OutputTarget::MakeFolder() const {
    std::error_code failure;
    std::filesystem::create_directories(output_, failure);
    if (!failure || FolderExists(output_)) return;
    const int number = ErrorNumberOfErrno(failure.value(), output_);
    throw OutputError{number, output_ + ": " + ErrorText(number)};
}

void RefuseInput(const std::string& path, const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs) {
        std::error_code failure;
        if (input != kStandardStream && std::filesystem::equivalent(path, input, failure))
            throw OutputError{error_number::PathFileAccess,
                              path + ": is a file that the command reads; it is not replaced"};
    }
}

void WriteTowards(const std::string& path, const std::function<void()>& step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        const bool exists = error.number == error_number::FileAlreadyExists;
        throw OutputError{error.number, path + (exists ? kExists : ": " + error.text)};
    }
}

ReplacementRules RulesOf(bool force) {
    using Existing = ReplacementRules::Existing;
    return {.existing = force ? Existing::Replace : Existing::Refuse, .copy_of = ""};
}

// Nothing is left of the file when its bytes go out: a reader that has seen enough ends the program by a signal.
void WriteToStandardOutput(const std::string& extension,
                           const std::function<void(const std::string&)>& write) {
    const auto bytes_written = [&] {
        const ScratchFolder folder("output" + extension);
        write(folder.FilePath());
        return ReadWholeFile(folder.FilePath(), std::string().max_size());
    };
    try {
        std::cout << bytes_written();
    } catch (const RunTimeError& error) {
        throw OutputError{error.number, "standard output: " + error.text};
    }
}

// Makes the folder of the files as well, so that nothing but the file itself is left to fail.
void OutputTarget::Prepare(const std::string& path) const {
    if (standard_output_) return;
    std::error_code failure;
    if (FolderExists(path)) throw OutputError{error_number::PathFileAccess, path + ": is a folder"};
    if (taken_.count(path) != 0)
        throw OutputError{error_number::FileAlreadyExists,
                          path + ": holds the result of another project of the same name"};
    if (!force_ && std::filesystem::is_regular_file(path, failure))
        throw OutputError{error_number::FileAlreadyExists, path + kExists};
    RefuseInput(path, inputs_);
    if (folder_) MakeFolder();
}

void OutputTarget::Place(const std::string& path, const std::string& copy_of,
                         const std::function<void(FileReplacement&)>& fill) const {
    Prepare(path);
    WriteTowards(path, [&] {
        ReplacementRules rules = RulesOf(force_);
        rules.copy_of = copy_of;
        FileReplacement place(path, rules);
        fill(place);
        place.Commit();
    });
    if (folder_) taken_.insert(path);
}

void OutputTarget::Write(const std::string& path,
                         const std::function<void(const std::string&)>& write) const {
    if (standard_output_)
        WriteToStandardOutput(format_, write);
    else
        Place(path, "", [&write](const FileReplacement& place) { write(place.BuildPath()); });
}

void OutputTarget::WriteBytes(const std::string& path, const std::string& bytes,
                              const std::string& copy_of) const {
    if (standard_output_)
        std::cout << bytes;
    else
        Place(path, copy_of, [&bytes](FileReplacement& place) { place.Fill(bytes); });
}

}  // namespace tarvokol::cli
