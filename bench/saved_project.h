// SPDX-License-Identifier: GPL-3.0-or-later
// The project that the benchmarks work on.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "core/headless/headless_platform.h"
#include "core/messages/history_log.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"

namespace tarvokol {

// A saved project in a folder of its own, removed afterwards.
class SavedProject {
  public:
    SavedProject() {
        host_.Install();
        DisplayHistoryWin = 0;
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvokol-bench-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        ProjectFileName = (folder_ / "panel.TKL").string();
        ProjectTitle = "Panel 7 under full cover";
        ProjectDescription =
            "Longest panel between barriers: 20 holes, 1000 ft deep.\r\nWide webs because the cover reaches "
            "420 "
            "ft\r\nBarrier checked against the abutment load";
        ProjectRecord = PanelInputs{};
        ProjectRecord.Height = 5.5;
        ProjectRecord.DepthCover = 420;
        ProjectRecord.HoleWidth = 11.5;
        ProjectRecord.WebThickness = 11.5;
        ProjectRecord.BarrierPillarWidth = 44;
        ProjectRecord.NumberHoles = 20;
        ProjectRecord.CrosscutAngle = 90;
        ProjectRecord.CrosscutSpacing = 1000000;
        ProjectRecord.CoalStrength = 900;
        ProjectRecord.UnitWeight = 162;
        ProjectRecord.AbutmentAngle = 21;
        ProjectRecord.SFWeb = 1.6f;
        ProjectRecord.SFBarrier = 2;
        FileSave();
    }
    SavedProject(const SavedProject&) = delete;
    SavedProject& operator=(const SavedProject&) = delete;
    ~SavedProject() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

  private:
    HeadlessPlatform host_;
    std::filesystem::path folder_;
};

}  // namespace tarvokol
