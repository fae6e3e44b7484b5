// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "core/files/text_file.h"
#include "core/graphics/TarvoGraf.h"
#include "core/messages/error_classes.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/file_conversion.h"
#include "core/project/preview_record.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/sizing_solver.h"
#include "core/project/working_parameters.h"
#include "core/report/print_engine.h"
#include "core/report/results_state.h"
#include "core/report/text_browser.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/main_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/recent_file_settings.h"
#include "core/settings/update_reminder.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

void ExpectEmpty(const std::vector<std::string>& texts) {
    EXPECT_THAT(texts, testing::Each(testing::IsEmpty()));
}

class Reset : public CoreTest {
  protected:
    ~Reset() override { ResetProgram(); }
};

TEST_F(Reset, TheProjectIsForgotten) {
    ProjectRecord.Height = 5;
    ProjectRecord.SpareSingle = 7;
    ProjectRecord.CenterDistance[20] = 3;
    PreviewRecord.XcutPitch[20] = 4;
    PreviewRecord.WebThickness = 6;
    ProjectFileName = PreviousFileName = ProjectTitle = ProjectDescription = "x";
    DescriptionLineCount = FileFormatLevel = ProjectFileMode = 9;
    ProjectSaved = ProjectEmpty = 0;
    UnitsLocked = RecentListShown = 255;
    DialogCancelled = true;
    DialogPaths[2] = "x";
    OutputBuffers.Fill("page");
    ConvertTargetUnits = 1;
    UnitSystem = 1;
    ResetProgram();
    EXPECT_EQ(ProjectRecord.Height, 0);
    EXPECT_EQ(ProjectRecord.SpareSingle, 0);
    EXPECT_EQ(ProjectRecord.CenterDistance[20], 0);
    EXPECT_EQ(PreviewRecord.XcutPitch[20], 0);
    EXPECT_EQ(PreviewRecord.WebThickness, 0);
    ExpectEmpty({ProjectFileName, PreviousFileName, ProjectTitle, ProjectDescription, DialogPaths[2]});
    EXPECT_EQ(DescriptionLineCount + FileFormatLevel + ProjectFileMode, 0);
    EXPECT_EQ(ProjectSaved + ProjectEmpty, 510);
    EXPECT_EQ(UnitsLocked + RecentListShown, 0);
    EXPECT_FALSE(DialogCancelled);
    ExpectEmpty({OutputBuffers[0], OutputBuffers[1], OutputBuffers[2]});
    EXPECT_EQ(ConvertTargetUnits + UnitSystem, 0);
}

TEST_F(Reset, ResultsAreForgotten) {
    WorkingParameters.PillarWidth[2] = 8;
    WorkingParameters.ForceUnitLabel = "x";
    SizingBlock.SizeDepth = 2;
    CurveData.Allocate(3, 2);
    CurvePoints = 3;
    CurveCount = StabilityCurveKind = SizingCurveKind = 2;
    PrintJob.PageNumber = 4;
    ResultsReturn = 2;
    PlotWidth = PlotHeight = 3;
    CornerX[4][20] = CornerY[1][1] = XcutDimX[5] = 2;
    PillarPresent[3] = XcutDimShown[4] = ZoneActive[4] = 1;
    PlotMode = 3;
    PlotFromResults = true;
    PillarTotalStress[2] = PillarAbutmentStress[2] = 5;
    ResetProgram();
    EXPECT_EQ(WorkingParameters.PillarWidth[2], 0);
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, "");
    EXPECT_EQ(SizingBlock.SizeDepth, 0);
    EXPECT_EQ(CurveData.Rows() + CurveData.Columns(), 0);
    EXPECT_EQ(CurvePoints + CurveCount + StabilityCurveKind + SizingCurveKind, 0);
    EXPECT_EQ(PrintJob.PageNumber, 0);
    EXPECT_EQ(ResultsReturn, 1);
    EXPECT_EQ(PlotWidth + PlotHeight + CornerX[4][20] + CornerY[1][1] + XcutDimX[5], 0);
    EXPECT_EQ(PillarPresent[3] + XcutDimShown[4] + ZoneActive[4], 0);
    EXPECT_EQ(PlotMode, 1);
    EXPECT_FALSE(PlotFromResults);
    EXPECT_EQ(PillarTotalStress[2] + PillarAbutmentStress[2], 0);
}

TEST_F(Reset, SettingsAndMessagesAreForgotten) {
    HistorySequence = 12;
    ErrorTitle = RangeErrorTitle = RangeWarningTitle = InvalidCharTitle = LogicErrorTitle = "x";
    CurrentError = RunTimeError(53);
    OptionsRecord.DefaultSFWeb = 3;
    MaxLastFiles = 4;
    LastFile[2] = LastFileLong[2] = "x";
    LastFileMode[2] = 1;
    GraphSetParams = GraphUnits = 1;
    XAxisTitleS[1] = "x";
    AppFolder = PersonalDataFolder = TempDataFolder = IniPath = DescTempPath = UpdateAdvice = "x";
    IniFileVersion = "1";
    BrowseFolder = "x";
    ResetProgram();
    EXPECT_EQ(HistorySequence, 0);
    ExpectEmpty({ErrorTitle, RangeErrorTitle, RangeWarningTitle, InvalidCharTitle, LogicErrorTitle});
    EXPECT_EQ(CurrentError.number, 0);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    EXPECT_EQ(MaxLastFiles, 0);
    ExpectEmpty({LastFile[2], LastFileLong[2]});
    EXPECT_EQ(LastFileMode[2], 0);
    EXPECT_EQ(GraphSetParams + GraphUnits, 0);
    ExpectEmpty({XAxisTitleS[1]});
    ExpectEmpty({AppFolder, PersonalDataFolder, TempDataFolder, IniPath, DescTempPath, UpdateAdvice});
    ExpectEmpty({BrowseFolder});
    ExpectEmpty({IniFileVersion, DataPath, RunTimeHelpFile});
}

TEST_F(Reset, OpenFilesAreClosed) {
    WriteBytes(PathTo("open"), "x\n");
    OpenForInput(1, PathTo("open"));
    OpenForOutput(3, PathTo("other"));
    PrintLine(3, "not flushed");
    ResetProgram();
    EXPECT_EQ(FreeFile(), 1);
    EXPECT_EQ(ReadBytes(PathTo("other")), "");
}

TEST_F(Reset, BindingsStay) {
    ResetProgram();
    EXPECT_EQ(Platform.Messages, &Host.Messages);
}

}  // namespace
}  // namespace tarvokol
