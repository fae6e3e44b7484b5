// SPDX-License-Identifier: GPL-3.0-or-later
// What the project tests start from: an untouched record, no scratch folder, and files built line by line.
#pragma once

#include <string>
#include <vector>

#include "core/files/text_file.h"
#include "core/project/description.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/settings/folders.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

class ProjectTest : public CoreTest {
  protected:
    ProjectTest() {
        CloseFile(1);
        ProjectRecord = PanelInputs{};
        UnitSystem = 0;
        ProjectTitle = ProjectDescription = PreviousFileName = "";
        ProjectFileName = "Untitled";
        DescriptionLineCount = FileFormatLevel = ProjectFileMode = 0;
        ProjectSaved = ProjectEmpty = 255;
        UnitsLocked = RecentListShown = 0;
        DialogCancelled = false;
        DescTempPath = TempDataFolder = "";
    }
    ~ProjectTest() override { CloseFile(1); }

    static std::string Joined(const std::vector<std::string>& lines, const std::string& line_end = "\r\n") {
        std::string text;
        for (const std::string& line : lines) text += line + line_end;
        return text;
    }

    // The lines of a whole file with the given title and description lines.
    static std::vector<std::string> FileLines(const std::string& title,
                                              const std::vector<std::string>& description) {
        std::vector<std::string> lines{"TARVOKOL_101", " 0 ", title, "##StartDesc##"};
        lines.insert(lines.end(), description.begin(), description.end());
        for (const char* line : {"##EndDesc##", "4.5", "250", "11.5", "5.25", "17", " 12 ", "90", "1000000",
                                 "900", "162", "21", "1.6", "2", "0.25"})
            lines.push_back(line);
        return lines;
    }

    // Writes a file of the test's folder and makes it the project's.
    void Provide(const std::string& bytes) {
        ProjectFileName = PathTo("panel.TKL");
        WriteBytes(ProjectFileName, bytes);
    }

    void FillRecord() {
        ProjectRecord.Height = 4.5;
        ProjectRecord.DepthCover = 250;
        ProjectRecord.HoleWidth = 11.5;
        ProjectRecord.WebThickness = 5.25;
        ProjectRecord.BarrierPillarWidth = 17;
        ProjectRecord.NumberHoles = 12;
        ProjectRecord.CrosscutAngle = 90;
        ProjectRecord.CrosscutSpacing = 1000000;
        ProjectRecord.CoalStrength = 900;
        ProjectRecord.UnitWeight = 162;
        ProjectRecord.AbutmentAngle = 21;
        ProjectRecord.SFWeb = 1.6f;
        ProjectRecord.SFBarrier = 2;
        ProjectRecord.SpareSingle = 0.25f;
    }
};

}  // namespace tarvokol
