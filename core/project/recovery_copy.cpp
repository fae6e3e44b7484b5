// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/recovery_copy.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/files/file_lock.h"
#include "core/files/file_replacement.h"
#include "core/files/file_system.h"
#include "core/files/running_process.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/project_file.h"
#include "core/project/project_origin.h"
#include "core/project/project_state.h"
#include "core/runtime/charset.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"

namespace tarvokol {
namespace {

// With blanks, at which the report breaks a long path.
constexpr std::string_view kCopyPrefix = "~unsaved ";
constexpr char kBeforeRun = ' ';
constexpr char kBeforeStart = '-';
constexpr long kLongestPlainName = 40;
constexpr std::size_t kLongestExtension = 32;

// This run's copy.
struct OwnCopy {
    std::string path;
    FileLock lock;
    TypedTexts typed;
};
OwnCopy Own;

bool IsCopyName(const std::string& name) {
    return name.compare(0, kCopyPrefix.size(), kCopyPrefix) == 0;
}

// The project's name without folder, extension and, if the project is itself such a copy, the marks of one.
std::string PlainName() {
    std::string name = std::filesystem::path(ProjectFileName).stem().string();
    if (IsCopyName(name)) name = name.substr(kCopyPrefix.size(), name.rfind(kBeforeRun) - kCopyPrefix.size());
    return Left(name, kLongestPlainName);
}

bool IsUsableExtension(const std::string& extension) {
    return !extension.empty() && extension.size() <= kLongestExtension &&
           extension.find_first_of("/\\") == std::string::npos;
}

// With the extension under which the dialog of File, Open lists projects; a setting that is none keeps no copy from being made.
std::string Extension() {
    return "." + (IsUsableExtension(FileExtension) ? FileExtension : ProjectExtension);
}

// The number of this process and the moment at which it began: together they never come again while the system runs.
std::string NameOfRun() {
    const long process = ProcessNumber();
    return std::to_string(process) + kBeforeStart +
           std::to_string(StartOfProcess(static_cast<pid_t>(process)).value_or(0));
}

// The folder may have been another machine's, or the system started again.
std::string FreePath() {
    const std::string stem =
        TempDataFolder + std::string(kCopyPrefix) + PlainName() + kBeforeRun + NameOfRun();
    std::string path = stem + Extension();
    std::error_code ignored;
    for (int i = 2; std::filesystem::exists(std::filesystem::symlink_status(path, ignored)); ++i)
        path = stem + "." + std::to_string(i) + Extension();
    return path;
}

// The copy goes on under its name while the project keeps its own.
std::string PathToWrite() {
    const std::string stem = TempDataFolder + std::string(kCopyPrefix) + PlainName() + kBeforeRun;
    const bool same_name = !Own.path.empty() && Own.path.compare(0, stem.size(), stem) == 0;
    return same_name ? Own.path : FreePath();
}

// The open project's file; of a project that has none its name.
std::string PathOfProject() {
    if (HasNoName()) return ProjectFileName;
    // A file dialog that was cancelled leaves the bare name.
    const std::string origin = OriginPath();
    const bool is_bare = std::filesystem::path(origin).filename() == std::filesystem::path(ProjectFileName);
    return WholePath(is_bare ? origin : ProjectFileName);
}

// The new content is locked before it takes its place, so that no other run ever sees it without its owner.
OwnCopy Written(const std::string& path) {
    FileReplacement copy(path, {.copy_of = OriginPath()});
    copy.Fill(EncodeFileText(ProjectFileText()) + TextOfNote({PathOfProject(), Own.typed}));
    copy.Commit();
    return {path, copy.TakeLock(), Own.typed};
}

void Remove(const std::string& path) {
    std::error_code ignored;
    if (!path.empty()) std::filesystem::remove(path, ignored);
}

// The copies in the temporary folder, this run's apart, in the order of their names.
std::vector<std::string> OtherCopies() {
    std::vector<std::string> paths;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(TempDataFolder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (IsCopyName(name) && FileExists(TempDataFolder + name) && TempDataFolder + name != Own.path)
            paths.push_back(TempDataFolder + name);
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

// True if the run lives that a copy's name tells of, as far as the system knows; for file systems without locks.
bool RunLives(const std::string& path) {
    const std::string name = std::filesystem::path(path).filename().string();
    const char* end = name.data() + name.size();
    pid_t process = 0;
    std::uint64_t start = 0;
    const auto number = std::from_chars(name.data() + name.rfind(kBeforeRun) + 1, end, process);
    if (number.ec != std::errc() || number.ptr == end || *number.ptr != kBeforeStart) return false;
    if (std::from_chars(number.ptr + 1, end, start).ec != std::errc()) return false;
    return StartOfProcess(process) == start;
}

}  // namespace

void KeepRecoveryCopy() {
    if (TempDataFolder.empty()) return;
    const std::string path = PathToWrite();
    try {
        OwnCopy written = Written(path);
        if (Own.path != path) Remove(Own.path);
        Own = std::move(written);
    } catch (const RunTimeError& error) {
        LogMessage("Unsaved project cannot be kept: " + path + ": " + error.text);
    }
}

void KeepTypedTexts(const TypedTexts& typed) {
    if (typed == Own.typed) return;
    Own.typed = typed;
    KeepRecoveryCopy();
}

void DropTypedTexts() {
    if (Own.typed.dialog.empty()) return;
    Own.typed = {};
    if (HasUnsavedChanges())
        KeepRecoveryCopy();
    else
        DropRecoveryCopy();
}

void DropRecoveryCopy() {
    Remove(Own.path);
    Own = {};
}

void LeaveRecoveryCopy() {
    Own = {};
}

const std::string& RecoveryCopyPath() {
    return Own.path;
}

std::string UnsavedWorkPath() {
    if (HasUnsavedChanges() && Own.path.empty()) KeepRecoveryCopy();
    return Own.path;
}

void TellIfUnprotected() {
    if (TempDataFolder.empty()) return;
    try {
        RequireWritableFolder(TempDataFolder);
    } catch (const RunTimeError& error) {
        Notify("Unsaved work is not protected: no copy of it can be kept in " + TempDataFolder + ": " +
                   error.text + "." + std::string(CrLf) +
                   "What is not saved is lost if the program ends early.",
               box_style::Exclamation);
    }
}

std::vector<AbandonedCopy> AbandonedCopies() {
    std::vector<AbandonedCopy> copies;
    if (TempDataFolder.empty()) return copies;
    for (const std::string& path : OtherCopies()) {
        FileLock lock(path);
        if (lock.Held() || (!lock.HeldElsewhere() && !RunLives(path)))
            copies.push_back({path, std::move(lock)});
    }
    return copies;
}

void ReportRecoveryCopies() {
    for (const AbandonedCopy& copy : AbandonedCopies())
        LogMessage("Unsaved project of an earlier run: " + copy.path);
}

}  // namespace tarvokol
