// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_file.h"

#include <functional>
#include <set>

#include "core/files/text_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/kept_copy.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr int kProjectFile = 1;          // file number
constexpr std::size_t kMagicLimit = 64;  // bytes of a foreign file that are looked at
constexpr int kDescriptionFlag = 2;

// The files that a save has emptied and not finished: what stands in them is a rest of what is being saved.
std::set<std::string> UnfinishedSaves;

// True if the file may be emptied: its content is kept.
bool MayEmpty(const std::string& path) {
    return UnfinishedSaves.count(path) != 0 || KeepPreviousContent(path);
}

void OpenEmptied() {
    OpenForOutput(kProjectFile, ProjectFileName);
    UnfinishedSaves.insert(ProjectFileName);
}

// Takes the lines of a project file one by one.
using LineSink = std::function<void(const std::string&)>;

void PrintLineOfProject(const std::string& line) {
    PrintLine(kProjectFile, line);
}

// An integer stands between blanks, the first one being the place of its sign.
std::string IntegerText(int16_t value) {
    return SignedText(value) + " ";
}

void PutTitle(const LineSink& put) {
    put(std::string(ProjectMagic));
    put(IntegerText(UnitSystem));
    put(ProjectTitle);
}

void PutDescription(const LineSink& put, const std::string& description) {
    put(std::string(DescriptionStart));
    put(description);
    put(std::string(DescriptionEnd));
}

// A description that was read ends in a line end, one that was saved or typed does not.
std::string DescriptionWithoutLineEnd() {
    const bool ended = ProjectDescription.ends_with(CrLf);
    return ProjectDescription.substr(0, ProjectDescription.size() - (ended ? CrLf.size() : 0));
}

void PutPanel(const LineSink& put) {
    put(NumberToFileText(ProjectRecord.Height));
    put(NumberToFileText(ProjectRecord.DepthCover));
    put(NumberToFileText(ProjectRecord.HoleWidth));
    put(NumberToFileText(ProjectRecord.WebThickness));
    put(NumberToFileText(ProjectRecord.BarrierPillarWidth));
    put(IntegerText(ProjectRecord.NumberHoles));
    put(NumberToFileText(ProjectRecord.CrosscutAngle));
    put(NumberToFileText(ProjectRecord.CrosscutSpacing));
}

void PutLoads(const LineSink& put) {
    put(NumberToFileText(ProjectRecord.CoalStrength));
    put(NumberToFileText(ProjectRecord.UnitWeight));
    put(NumberToFileText(ProjectRecord.AbutmentAngle));
    put(NumberToFileText(ProjectRecord.SFWeb));
    put(NumberToFileText(ProjectRecord.SFBarrier));
    put(NumberToFileText(ProjectRecord.SpareSingle));
}

void PrintIdentity() {
    PutTitle(PrintLineOfProject);
    ReformatDescription();
    PutDescription(PrintLineOfProject, ProjectDescription);
}

// No holes are written as 0 and mended in memory only.
void MendNumberHoles() {
    if (ProjectRecord.NumberHoles == 0) ProjectRecord.NumberHoles = 1;
}

void PrintInputs() {
    PutPanel(PrintLineOfProject);
    MendNumberHoles();
    PutLoads(PrintLineOfProject);
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

// Opens and reads the project; false if the magic does not match.
bool ReadOpenFile() {
    OpenForInput(kProjectFile, ProjectFileName);
    FileFormatLevel = PresentFormatLevel;
    if (!CheckMagic(TokenStart(kProjectFile, kMagicLimit), std::string(ProjectMagic))) return false;
    ReadIdentity();
    ReadInputs();
    ProjectSaved = 255;
    ProjectEmpty = 0;
    UnitsLocked = 255;
    CloseFile(kProjectFile);
    UnfinishedSaves.erase(ProjectFileName);
    return true;
}

}  // namespace

bool FileSave() {
    LogMessage("Saving: " + ProjectFileName);
    Platform.MainWindow->SetMousePointer(MousePointer::Hourglass);
    CloseFile(kProjectFile);
    const bool saves = MayEmpty(ProjectFileName);
    if (saves) {
        OpenEmptied();
        PrintIdentity();
        PrintInputs();
        FlushFile(kProjectFile);
        SyncFile(kProjectFile);
        ProjectSaved = 255;
        CloseFile(kProjectFile);
        UnfinishedSaves.erase(ProjectFileName);
    }
    Platform.MainWindow->SetMousePointer(MousePointer::Default);
    return saves;
}

std::string ProjectFileText() {
    std::string text;
    const LineSink put = [&text](const std::string& line) { text.append(line).append(CrLf); };
    PutTitle(put);
    PutDescription(put, DescriptionWithoutLineEnd());
    PutPanel(put);
    PutLoads(put);
    return text;
}

bool ReadProjectFile() {
    CloseFile(kProjectFile);
    LogMessage("Opening: " + ProjectFileName);
    try {
        const bool known = ReadOpenFile();
        if (!known) TellKeptCopy(ProjectFileName);
        Platform.MainWindow->SetMousePointer(MousePointer::Default);
        return known;
    } catch (const RunTimeError&) {
        TellKeptCopy(ProjectFileName);
        throw;
    }
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
