// Every FILE of the command line starts from a fresh program: the variables of all rooms, room by room, as a
// new process has them. A variable that is added to a room belongs here, too.
#include "engine/curves.h"
#include "engine/project_record.h"
#include "engine/sizing_solver.h"
#include "engine/working_parameters.h"
#include "graphics/TarvoGraf.h"
#include "messages/error_classes.h"
#include "messages/titles.h"
#include "project/file_conversion.h"
#include "project/lifecycle.h"
#include "project/project_file.h"
#include "project/project_state.h"
#include "report/print_engine.h"
#include "report/results_state.h"
#include "report/text_browser.h"
#include "runtime/text_file.h"
#include "settings/configuration.h"
#include "settings/folders.h"
#include "settings/graph_settings.h"
#include "settings/program_settings.h"
#include "settings/update_reminder.h"
#include "shell/start_up.h"

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
