// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a copy that an earlier run has left behind, and as a kept copy of a project: both are listed or passed over, and
// never end the program. A note reads back as it is written.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include <unistd.h>

#include "core/headless/headless_platform.h"
#include "core/project/kept_copy.h"
#include "core/project/left_copies.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/program_settings.h"

namespace tarvokol {
namespace {

void Require(bool fact) {
    if (!fact) std::abort();
}

// In memory where the system has that: each run writes a file or two.
std::string DataFolder() {
    std::error_code failure;
    const std::filesystem::path memory = "/dev/shm";
    const auto place =
        std::filesystem::is_directory(memory, failure) ? memory : std::filesystem::temp_directory_path();
    const auto folder = place / ("tarvokol-fuzz-" + std::to_string(::getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder.string() + "/";
}

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void TryNote(const std::string& bytes) {
    const CopyNote note = NoteOf(bytes);
    const CopyNote again = NoteOf("2\r\n" + TextOfNote(note));
    Require(again.project == note.project);
    Require(note.typed.dialog.empty() || again.typed == note.typed);
    const CopyNote typed{bytes, {"frmTARVOParm", {{"txtHeight", bytes}, {bytes, ""}}}};
    const CopyNote back = NoteOf("2\r\n" + TextOfNote(typed));
    Require(back.project == bytes && back.typed == typed.typed);
}

void TryLeftCopy(const std::string& bytes) {
    Write(TempDataFolder + "~unsaved panel 1-1.TKL", bytes);
    for (const LeftCopy& copy : CopiesLeftBehind()) {
        try {
            if (OpenLeftCopy(copy)) Require(HasUnsavedChanges());
        } catch (const RunTimeError&) {
        }
    }
    DropRecoveryCopy();
}

void TryKeptCopy(const std::string& bytes) {
    const std::string project = TempDataFolder + "panel.TKL";
    Write(KeptCopyPath(project), bytes);
    const std::string good = NewestGoodCopy(project);
    Require(good.empty() || good == KeptCopyPath(project));
    std::filesystem::remove(KeptCopyPath(project));
}

void TryBytes(const std::string& bytes) {
    static HeadlessPlatform host;
    static const std::string folder = DataFolder();
    host.Install();
    host.Messages.Shown.clear();
    TempDataFolder = folder;
    ProjectExtension = FileExtension = "TKL";
    TryNote(bytes);
    TryLeftCopy(bytes);
    TryKeptCopy(bytes);
}

}  // namespace
}  // namespace tarvokol

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvokol::TryBytes(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
