// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a project file: reading raises a run-time error at most, and what was read can be checked,
// analysed, saved and read again. The file stays as it is. As a value it is the same project.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include <sys/mman.h>
#include <unistd.h>

#include "core/files/text_file.h"
#include "core/headless/headless_platform.h"
#include "core/messages/history_log.h"
#include "core/project/input_check.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/stability_analysis.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// A file in memory that has a path.
class MemoryFile {
  public:
    MemoryFile() : descriptor_(::memfd_create("project", 0)) {}

    std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

    void Fill(std::string_view bytes) const {
        Require(::ftruncate(descriptor_, 0) == 0);
        Require(::pwrite(descriptor_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
    }

    std::string Content() const {
        std::string bytes(static_cast<std::size_t>(::lseek(descriptor_, 0, SEEK_END)), '\0');
        Require(::pread(descriptor_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
        return bytes;
    }

    static void Require(bool fact) {
        if (!fact) std::abort();
    }

  private:
    int descriptor_;
};

// Runs a step; true if it raised no run-time error. Any other exception ends the run.
template <typename Step>
bool Runs(Step step) {
    try {
        return step();
    } catch (const RunTimeError&) {
        return false;
    }
}

bool Calculate() {
    if (!PrepareWorkingParameters()) return false;
    RunStabilityAnalysis();
    ConvertToOutputUnits();
    return true;
}

// A save needs a place with a folder, to build the new file in; one that is in memory where the system has that.
std::string PlaceToSave() {
    std::error_code failure;
    const std::filesystem::path memory = "/dev/shm";
    const auto folder =
        std::filesystem::is_directory(memory, failure) ? memory : std::filesystem::temp_directory_path();
    return (folder / ("tarvokol-fuzz-" + std::to_string(::getpid()) + ".TKL")).string();
}

void SaveAndReadAgain() {
    const std::string title = ProjectTitle;
    const int16_t units = UnitSystem;
    ProjectFileName = PlaceToSave();
    MemoryFile::Require(Runs(FileSave));
    Runs(ReadProjectFile);  // a description may well end its block early
    MemoryFile::Require(ProjectTitle == title && UnitSystem == units);
    std::filesystem::remove(ProjectFileName);
}

// The bytes of the value, nothing where it cannot be made.
std::optional<std::string> BytesAsValue(std::string_view bytes) {
    std::optional<std::string> written;
    Runs([&] {
        const auto document = DocumentOfBytes(bytes);
        if (document) written = BytesOfDocument(*document);
        return true;
    });
    return written;
}

void TryBytes(std::string_view bytes) {
    static HeadlessPlatform host;
    static const MemoryFile source;
    host.Install();
    host.Messages.Shown.clear();
    DisplayHistoryWin = 0;
    ProjectRecord = PanelInputs{};
    source.Fill(bytes);
    ProjectFileName = source.Path();
    const bool read = Runs(ReadProjectFile);
    MemoryFile::Require(source.Content() == bytes);
    const auto as_value = BytesAsValue(bytes);
    MemoryFile::Require(as_value.has_value() == read);
    if (read) {
        MemoryFile::Require(*as_value == BytesOfDocument(DocumentOfRecords()));
        MemoryFile::Require(UnitSystem == 0 || UnitSystem == 1);
        MemoryFile::Require(ProjectDescription.size() <= kLongestText);
        Runs(Calculate);
        SaveAndReadAgain();
    }
    CloseFile(1);
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvokol::TryBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
