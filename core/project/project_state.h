// SPDX-License-Identifier: GPL-3.0-or-later
// The open project's identity and its flags.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// What the flags of the project hold.
namespace flag {
constexpr uint8_t No = 0;
constexpr uint8_t Yes = 255;
}  // namespace flag

// In the place of a path, of a project that has no name yet.
inline constexpr const char* kUntitled = "Untitled";

struct ProjectStateValues {
    std::string ProjectFileName;       // path, or "Untitled"
    std::string PreviousFileName;      // its value when the last Open or recent-file pick began
    std::string ProjectTitle;          // one line
    std::string ProjectDescription;    // lines joined by CR LF
    int16_t DescriptionLineCount = 0;  // read by nothing; stays at its highest value once it has reached it
    int16_t FileFormatLevel = 0;
    int16_t ProjectFileMode = 0;

    uint8_t ProjectSaved = flag::Yes;    // nothing to save
    uint8_t ProjectEmpty = flag::Yes;    // no data entered
    uint8_t UnitsLocked = flag::No;      // the unit system must not be changed lightly any more
    uint8_t RecentListShown = flag::No;  // a recent-file entry is visible at start-up

    bool DialogCancelled = false;  // set when a file dialog was cancelled

    // Remembered start paths of the file dialog: 1 for Open, 2 for Save As.
    OneBased<std::string, 2> DialogPaths;

    // The report's pages 0 to 2.
    ZeroBased<std::string, 2> OutputBuffers;

    // Scratch file of the reformatter; empty where the scratch is kept in memory.
    std::string DescTempPath;
};
namespace state {
inline ProjectStateValues Project;
}
// Written by core/program/start_up, core/project/file_conversion, core/project/file_questions, core/project/lifecycle,
// core/project/recent_files, cli/commands/bulk_run, desktop/main/frmMain, studies/window/studies_window_commands and
// studies/window/unsaved_work.
inline auto& ProjectFileName = state::Project.ProjectFileName;
// Written by core/project/lifecycle, core/project/recent_files, cli/commands/bulk_run and desktop/main/frmMain.
inline auto& PreviousFileName = state::Project.PreviousFileName;
// Written by core/project/lifecycle, core/project/project_file and desktop/input/frmTARVODesc.
inline auto& ProjectTitle = state::Project.ProjectTitle;
// Written by core/project/description, core/project/lifecycle, core/project/project_file and
// desktop/input/frmTARVODesc.
inline auto& ProjectDescription = state::Project.ProjectDescription;
// Written by core/project/description and core/project/project_file.
inline auto& DescriptionLineCount = state::Project.DescriptionLineCount;
// Written by core/program/built_in_values and core/project/project_file.
inline auto& FileFormatLevel = state::Project.FileFormatLevel;
// Written by core/project/lifecycle.
inline auto& ProjectFileMode = state::Project.ProjectFileMode;
inline auto& DialogPaths = state::Project.DialogPaths;
// Written by core/project/project_state.
inline auto& ProjectSaved = state::Project.ProjectSaved;
inline auto& ProjectEmpty = state::Project.ProjectEmpty;
inline auto& UnitsLocked = state::Project.UnitsLocked;
// Written by core/project/recent_files.
inline auto& RecentListShown = state::Project.RecentListShown;
// Written by core/project/lifecycle, core/project/recent_files and desktop/main/frmMain_commands.
inline auto& DialogCancelled = state::Project.DialogCancelled;
// Written by core/project/lifecycle and core/report/report_builder.
inline auto& OutputBuffers = state::Project.OutputBuffers;
// Written by core/program/built_in_values.
inline auto& DescTempPath = state::Project.DescTempPath;

// The events of a project's life. Each sets the three flags that tell of it, which nobody else sets.
void MarkProjectNew();      // nothing to save, no data, units free
void MarkProjectRead();     // a file was read to its end: nothing to save, data, units locked
void MarkProjectWritten();  // a file was written to its end: nothing to save
void MarkProjectChanged();  // a dialog stored data: to be saved, data, units locked; a copy is kept (recovery_copy.h)
void MarkProjectConverted();  // into the other unit system: to be saved; a copy is kept

bool HasNoName();  // none yet, or "Untitled" in whatever letters
bool HasUnsavedChanges();
bool IsProjectEmpty();
bool AreUnitsLocked();

}  // namespace tarvokol
