// Every FILE of the command line starts from a fresh program: the variables of all rooms, room by room, as a
// new process has them. A variable that is added to a room belongs here, too.
#include "core/engine/curves.h"
#include "core/engine/project_record.h"
#include "core/engine/sizing_solver.h"
#include "core/engine/working_parameters.h"
#include "core/graphics/TarvoGraf.h"
#include "core/messages/error_classes.h"
#include "core/messages/titles.h"
#include "core/program/start_up.h"
#include "core/project/file_conversion.h"
#include "core/project/lifecycle.h"
#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/report/print_engine.h"
#include "core/report/results_state.h"
#include "core/report/text_browser.h"
#include "core/runtime/text_file.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/program_settings.h"
#include "core/settings/update_reminder.h"

namespace tarvokol {
namespace {

void ResetMessages() {
    CurrentError = RunTimeError{0, ""};
    RangeErrorTitle.clear();
    RangeWarningTitle.clear();
    InvalidCharTitle.clear();
    ErrorTitle.clear();
    LogicErrorTitle.clear();
}

void ResetEngine() {
    ProjectRecord = PanelInputs{};
    PreviewRecord = PreviewInputs{};
    WorkingParameters = AnalysisState{};
    SizingBlock = SizingParameters{};
    CurveData = CurveTable{};
    CurvePoints = 0;
    CurveCount = 0;
    StabilityCurveKind = 0;
    SizingCurveKind = 0;
}

void ResetSettings() {
    MaxLastFiles = 0;
    LastFileMode.Fill(0);
    GraphSetParams = 0;
    GraphUnits = 0;
    AppFolder.clear();
    PersonalDataFolder.clear();
    TempDataFolder.clear();
    IniPath.clear();
    IniFileVersion.clear();
    UpdateAdvice.clear();
    HideDisclaimerCheck = 0;
}

void ResetProject() {
    ProjectFileName.clear();
    PreviousFileName.clear();
    ProjectTitle.clear();
    ProjectDescription.clear();
    DescriptionLineCount = 0;
    ProjectFileMode = 0;
    UnitsLocked = 0;
    RecentListShown = 0;
    DialogCancelled = false;
    DialogPaths.Fill("");
    DescTempPath.clear();
    ConvertTargetUnits = 0;
    ConvertKeepChoice = 0;
    OutputBuffers.Fill("");
}

void ResetReport() {
    PrintJob = PrintJobState{};
    ResultsReturn = results_return::Normal;
    BrowseFolder.clear();
}

void ResetPlan() {
    PlotWidth = PlotHeight = 0;
    PillarPresent.Fill(0);
    CornerX = {};
    CornerY = {};
    XcutDimX.Fill(0);
    XcutDimShown.Fill(0);
    ZoneActive.Fill(0);
    PlotMode = plot_mode::Dimensions;
    PlotFromResults = false;
    PillarAbutmentStress.Fill(0);
    PillarTotalStress.Fill(0);
}

}  // namespace

void ResetProgram() {
    AbandonAllFiles();
    ResetMessages();
    ResetEngine();
    ResetSettings();
    ResetProject();
    ResetReport();
    ResetPlan();
    RunTimeHelpFile.clear();
    SetBuiltInValues();
}

}  // namespace tarvokol
