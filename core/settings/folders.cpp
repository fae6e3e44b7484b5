// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/folders.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "core/files/file_replacement.h"
#include "core/files/file_system.h"
#include "core/files/text_file.h"
#include "core/files/whole_file.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/platform/special_folders.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/main_settings.h"

namespace tarvokol {
namespace {

constexpr int kSourceNumber = 1;
constexpr int kDestNumber = 2;

// Where an installation keeps what a build tree has beside the program.
constexpr const char* kSharedFolder = "../share/tarvokol/";

bool Usable(const std::optional<std::string>& folder) {
    return folder && FolderExists(*folder);
}

// The folder below which the user's data lie; nothing if the desktop names none that exists.
std::optional<std::string> BaseFolder() {
    if (auto documents = Platform.Folders->Documents(); Usable(documents)) return documents;
    if (auto desktop = Platform.Folders->Desktop(); Usable(desktop)) return desktop;
    return std::nullopt;
}

// Makes the folder, whose parent must exist; where that fails, `AppFolder` takes its place.
std::string MadeFolder(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::create_directory(folder, ignored);
    return FolderExists(folder) ? folder : AppFolder;
}

void CloseBoth() {
    CloseFile(kSourceNumber);
    CloseFile(kDestNumber);
}

void CopyLines(const std::string& source, const std::string& dest) {
    OpenForInput(kSourceNumber, source, FileContent::Raw);
    FileReplacement replacement(dest, {.copy_of = source});
    OpenForOutput(kDestNumber, replacement.BuildPath(), FileContent::Raw);
    while (!EndOfFile(kSourceNumber)) PrintLine(kDestNumber, LineInput(kSourceNumber));
    CloseBoth();
    replacement.Commit();
}

// Leaves both numbers free, whatever has happened.
void AbandonBoth() {
    try {
        CloseFile(kSourceNumber);
        CloseFile(kDestNumber);
    } catch (const RunTimeError&) {
        CloseFile(kDestNumber);
    }
}

bool SameFile(const std::string& source, const std::string& dest) {
    std::error_code failure;
    return std::filesystem::equivalent(source, dest, failure) && !failure;
}

bool IsExampleName(const std::string& name) {
    const std::string ending = "." + ProjectExtension;
    return name.front() != '.' && name.size() >= ending.size() &&
           EqualIgnoringCase(std::string_view(name).substr(name.size() - ending.size()), ending);
}

std::vector<std::string> ExampleNames(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (IsExampleName(name)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

void CopyMissingExamples(const std::string& folder) {
    for (const std::string& name : ExampleNames(folder)) {
        const std::string source = folder + name, dest = PersonalDataFolder + name;
        if (FileExists(dest)) continue;
        try {
            CopyTextFile(source, dest);
        } catch (const RunTimeError&) {
            // An example that cannot be copied is no reason to stop the start.
        }
    }
}

}  // namespace

void LocateAppFolder() {
    const std::string folder = std::filesystem::path(Platform.Folders->ProgramFile()).parent_path().string();
    AppFolder = WithSeparator(Trim(folder));
}

std::string InstalledFile(const std::string& name) {
    const std::string shared = AppFolder + kSharedFolder + name;
    return !FileExists(AppFolder + name) && FileExists(shared) ? shared : AppFolder + name;
}

void LocateDataFolders() {
    const auto base = BaseFolder();
    if (!base) {
        PersonalDataFolder = TempDataFolder = AppFolder;
        return;
    }
    const std::string folder = WithSeparator(*base) + "MyOLTEK" + PathSeparator;
    PersonalDataFolder = MadeFolder(folder);
    TempDataFolder = MadeFolder(folder + "Temp" + PathSeparator);
}

bool CopyTextFile(const std::string& source, const std::string& dest) {
    if (!FileExists(source)) {
        std::string title = "Error";
        Notify("Requested File not found: " + source, box_style::Plain, title);
        return false;
    }
    CloseBoth();
    if (SameFile(source, dest)) Raise(error_number::FileAlreadyOpen);
    try {
        CopyLines(source, dest);
    } catch (const RunTimeError&) {
        AbandonBoth();
        throw;
    }
    return true;
}

void CopyExampleFiles() {
    if (CopyExampleFilesSetting == 0 || PersonalDataFolder == AppFolder) return;
    CopyMissingExamples(AppFolder);
    CopyMissingExamples(AppFolder + kSharedFolder);
}

}  // namespace tarvokol
