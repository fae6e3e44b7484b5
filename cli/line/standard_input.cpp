// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/standard_input.h"

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>

#include "core/files/descriptor.h"
#include "core/files/file_system.h"
#include "core/files/os_errors.h"
#include "core/project/project_document.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

bool admitted = false;

constexpr std::size_t kLongestProject = std::size_t{64} * 1024 * 1024;

// The content lies in memory, in a file that no folder holds, until the program ends.
std::string KeepStandardInput() {
    const int file = ::memfd_create("project", MFD_CLOEXEC);
    if (file < 0) Raise(ErrorNumberOfErrno(errno));
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    Descriptor kept(path, O_WRONLY);
    std::vector<char> piece(std::size_t{64} * 1024);
    std::size_t size = 0;
    while (std::cin) {
        std::cin.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto count = static_cast<std::size_t>(std::cin.gcount());
        size += count;
        if (size > kLongestProject) Raise(error_number::OutOfMemory);
        kept.Write({piece.data(), count});
    }
    if (std::cin.bad()) Raise(error_number::DeviceIo);
    return path;
}

}  // namespace

void AdmitStandardProject(const Options& options) {
    admitted = options.stdin_project;
    if (!admitted) return;
    const auto named = std::count(options.files.begin(), options.files.end(), kStandardStream);
    if (named != 1) throw UsageError{"--stdin-project: one FILE must be -, which stands for standard input"};
    if (!options.output.empty() && (EndsInSeparator(options.output) || FolderExists(options.output)))
        throw UsageError{"--stdin-project: the project has no name for a file in the folder " +
                         options.output + "; name the file, or -"};
}

std::string PathToOpen(const std::string& file) {
    if (!admitted || file != kStandardStream) return file;
    static const std::string kept = KeepStandardInput();
    return kept;
}

std::string HintAtStandardInput(const std::string& file) {
    if (admitted || file != kStandardStream) return "";
    return "; a project on standard input is read with --stdin-project";
}

bool IsProjectStamp(const std::string& line) {
    return Trimmed(line) == ProjectMagic;
}

}  // namespace tarvokol::cli
