// SPDX-License-Identifier: GPL-3.0-or-later
// The open project's identity and its flags.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

struct ProjectStateValues {
    std::string ProjectFileName;       // path, or "Untitled"
    std::string PreviousFileName;      // its value when the last Open or recent-file pick began
    std::string ProjectTitle;          // one line
    std::string ProjectDescription;    // lines joined by CR LF
    int16_t DescriptionLineCount = 0;  // read by nothing; stays at its highest value once it has reached it
    int16_t FileFormatLevel = 0;
    int16_t ProjectFileMode = 0;

    uint8_t ProjectSaved = 255;   // 255 nothing to save, 0 unsaved changes
    uint8_t ProjectEmpty = 255;   // 255 no data entered, 0 the project has data
    uint8_t UnitsLocked = 0;      // 255 once the unit system must not be changed lightly
    uint8_t RecentListShown = 0;  // 255 once a recent-file entry is visible at start-up

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
inline auto& ProjectFileName = state::Project.ProjectFileName;
inline auto& PreviousFileName = state::Project.PreviousFileName;
inline auto& ProjectTitle = state::Project.ProjectTitle;
inline auto& ProjectDescription = state::Project.ProjectDescription;
inline auto& DescriptionLineCount = state::Project.DescriptionLineCount;
inline auto& FileFormatLevel = state::Project.FileFormatLevel;
inline auto& ProjectFileMode = state::Project.ProjectFileMode;
inline auto& ProjectSaved = state::Project.ProjectSaved;
inline auto& ProjectEmpty = state::Project.ProjectEmpty;
inline auto& UnitsLocked = state::Project.UnitsLocked;
inline auto& RecentListShown = state::Project.RecentListShown;
inline auto& DialogCancelled = state::Project.DialogCancelled;
inline auto& DialogPaths = state::Project.DialogPaths;
inline auto& OutputBuffers = state::Project.OutputBuffers;
inline auto& DescTempPath = state::Project.DescTempPath;

}  // namespace tarvokol
