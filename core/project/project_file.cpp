#include "core/project/project_file.h"

#include <filesystem>
#include <set>
#include <system_error>

#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text_file.h"
#include "core/settings/folders.h"

namespace tarvokol {
namespace {

constexpr int kProjectFile = 1;  // file number
constexpr const char* kMagic = "TARVOKOL_101";
constexpr std::size_t kMagicLimit = 64;  // bytes of a foreign file that are looked at
constexpr int kDescriptionFlag = 2;

// The files that a save has emptied and not finished. What stands in them is no project, so it must not
// replace the copy of the last good content.
std::set<std::string> UnfinishedSaves;

// Keeps the content of the file that is about to be emptied. Never fails: a save must not depend on its
// safety copy.
void KeepPreviousContent(const std::string& path) {
    if (TempDataFolder.empty() || UnfinishedSaves.count(path) != 0) return;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return;
    const std::string name = std::filesystem::path(path).filename().string();
    std::filesystem::copy_file(path, TempDataFolder + "~bak_" + name,
                               std::filesystem::copy_options::overwrite_existing, ignored);
}

void OpenEmptied() {
    CloseFile(kProjectFile);
    KeepPreviousContent(ProjectFileName);
    OpenForOutput(kProjectFile, ProjectFileName);
    UnfinishedSaves.insert(ProjectFileName);
}

template <typename Number>
void PrintNumberText(Number value) {
    PrintLine(kProjectFile, NumberToFileText(value));
}

void PrintIdentity() {
    PrintLine(kProjectFile, kMagic);
    PrintNumber(kProjectFile, UnitSystem);
    PrintLine(kProjectFile, ProjectTitle);
    ReformatDescription();
    PrintLine(kProjectFile, DescriptionStart);
    PrintLine(kProjectFile, ProjectDescription);
    PrintLine(kProjectFile, DescriptionEnd);
}

// No holes are written as 0 and mended in memory only.
void MendNumberHoles() {
    if (ProjectRecord.NumberHoles == 0) ProjectRecord.NumberHoles = 1;
}

void PrintInputs() {
    PrintNumberText(ProjectRecord.Height);
    PrintNumberText(ProjectRecord.DepthCover);
    PrintNumberText(ProjectRecord.HoleWidth);
    PrintNumberText(ProjectRecord.WebThickness);
    PrintNumberText(ProjectRecord.BarrierPillarWidth);
    PrintNumber(kProjectFile, ProjectRecord.NumberHoles);
    PrintNumberText(ProjectRecord.CrosscutAngle);
    PrintNumberText(ProjectRecord.CrosscutSpacing);
    MendNumberHoles();
    PrintNumberText(ProjectRecord.CoalStrength);
    PrintNumberText(ProjectRecord.UnitWeight);
    PrintNumberText(ProjectRecord.AbutmentAngle);
    PrintNumberText(ProjectRecord.SFWeb);
    PrintNumberText(ProjectRecord.SFBarrier);
    PrintNumberText(ProjectRecord.SpareSingle);
}

double ReadDouble() {
    return TokenNumber(kProjectFile);
}

int16_t ReadShort() {
    return ToShort(TokenNumber(kProjectFile));
}

float ReadSingle() {
    return ToSingle(TokenNumber(kProjectFile));
}

void ReadIdentity() {
    UnitSystem = ReadShort();
    ProjectTitle = LineInput(kProjectFile);
    if (UnitSystem < 0 || UnitSystem > 1) UnitSystem = 0;
    ProjectDescription.clear();
    ReadDescription(kProjectFile, kDescriptionFlag);
}

void ReadInputs() {
    ProjectRecord.Height = ReadDouble();
    ProjectRecord.DepthCover = ReadDouble();
    ProjectRecord.HoleWidth = ReadDouble();
    ProjectRecord.WebThickness = ReadDouble();
    ProjectRecord.BarrierPillarWidth = ReadDouble();
    ProjectRecord.NumberHoles = ReadShort();
    ProjectRecord.CrosscutAngle = ReadDouble();
    ProjectRecord.CrosscutSpacing = ReadDouble();
    MendNumberHoles();
    ProjectRecord.CoalStrength = ReadDouble();
    ProjectRecord.UnitWeight = ReadDouble();
    ProjectRecord.AbutmentAngle = ReadDouble();
    ProjectRecord.SFWeb = ReadSingle();
    ProjectRecord.SFBarrier = ReadSingle();
    ProjectRecord.SpareSingle = ReadSingle();
}

}  // namespace

bool FileSave() {
    LogMessage("Saving: " + ProjectFileName);
    Platform.MainWindow->SetMousePointer(MousePointer::Hourglass);
    OpenEmptied();
    PrintIdentity();
    PrintInputs();
    FlushFile(kProjectFile);
    ProjectSaved = 255;
    CloseFile(kProjectFile);
    UnfinishedSaves.erase(ProjectFileName);
    Platform.MainWindow->SetMousePointer(MousePointer::Default);
    return true;
}

bool ReadProjectFile() {
    CloseFile(kProjectFile);
    LogMessage("Opening: " + ProjectFileName);
    OpenForInput(kProjectFile, ProjectFileName);
    FileFormatLevel = PresentFormatLevel;
    const bool known = CheckMagic(TokenStart(kProjectFile, kMagicLimit), kMagic);
    if (known) {
        ReadIdentity();
        ReadInputs();
        ProjectSaved = 255;
        ProjectEmpty = 0;
        UnitsLocked = 255;
        CloseFile(kProjectFile);
        UnfinishedSaves.erase(ProjectFileName);
    }
    Platform.MainWindow->SetMousePointer(MousePointer::Default);
    return known;
}

std::string NumberToFileText(double value) {
    return GeneralText(value);
}

std::string NumberToFileText(float value) {
    return GeneralText(value);
}

bool CheckMagic(const std::string& found, const std::string& expected) {
    if (found == expected) return true;
    Notify("Invalid file format", box_style::Plain, ErrorTitle);
    return false;
}

}  // namespace tarvokol
