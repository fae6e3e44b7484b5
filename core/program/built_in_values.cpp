// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_system.h"
#include "core/graphics/TarvoGraf.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/program_help.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/working_parameters.h"
#include "core/report/report_builder.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/program_name.h"

namespace tarvokol {
namespace {

void SetIdentity() {
    AppLongTitle = "Tarvo Panel Stability Evaluation - KOL";
    HelpFileName = "TARVOKOL.CHM";
    PdfHelpName = "TARVOKOL.PDF";
    UpdatePageAddress = "https://www.oltek.example/tarvokol/";
    SupportAddress = "support@oltek.example";
    ExeNameUpper = ProgramNameUpper();
    IniStamp = "050924";
    KillStaleIni = -1;
    ProjectExtension = "TKL";
}

void ForgetProjectFlags() {
    UnitSystem = 0;
    MarkProjectNew();
    FileFormatLevel = 0;
}

void FillNameTables() {
    DialogPrefix.Fill("");
    DialogPrefix[1] = "Project Description: ";
    DialogPrefix[2] = "Project Parameters: ";
    DialogPrefix[7] = "Program Options: ";
    DialogPrefix[8] = "Settings: ";
    StabilityCaseNames[stability_case::Overall] = "Overall";
    StabilityCaseNames[stability_case::WebsOnly] = "Webs ONLY";
    StabilityCaseNames[stability_case::Barrier] = "Barrier Pillar";
    CurveNames = StabilityCaseNames;
    SizingCurveNames[1] = "Web Thickness";
    SizingCurveNames[2] = "Barrier Width";
    PillarClassNames[1] = "Barrier";
    PillarClassNames[2] = "Web    ";
    OrdinalNames[1] = "First";
    OrdinalNames[2] = "Second";
    FillResourceTables();
}

// What follows the module defaults. The history window is off in a new configuration.
void SetMainValues() {
    SetSettingsToBuiltIn();
    DisplayHistoryWin = 0;
    FillNameTables();
    LastOutputPage = 2;
    WebDrawLength = UnitSystem == 0 ? 200.0f : 60.0f;
    HistorySequence = 0;
    MessageTitle = "Message";
}

void SetPaths() {
    IniPath = PersonalDataFolder + "TARVOKOL.INI";
    DescTempPath = TempDataFolder + "~tmpdesc.tmp";
}

}  // namespace

void SetHelpFile() {
    RunTimeHelpFile = WithSeparator(AppFolder) + HelpFileName;
}

void InitModuleDefaults() {
    LocateAppFolder();
    LocateDataFolders();
    SetHelpFile();
    ForgetProjectFlags();
    SetSettingsToBuiltIn();
}

void SetBuiltInValues() {
    SetIdentity();
    ForgetProjectFlags();
    SetMainValues();
}

void InitializeProgram() {
    SetIdentity();
    InitModuleDefaults();
    SetMainValues();
    SetPaths();
}

}  // namespace tarvokol
