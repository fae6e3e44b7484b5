// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/kept_copy.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>

#include "core/files/file_replacement.h"
#include "core/files/file_system.h"
#include "core/files/free_name.h"
#include "core/files/os_errors.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/project_document.h"
#include "core/project/project_origin.h"
#include "core/runtime/check_sum.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/folders.h"

namespace tarvokol {
namespace {

constexpr const char* kPrefix = "~bak_";
constexpr const char* kDamagedPrefix = "~bak_damaged";
constexpr char kBeforeNumber = '~';
constexpr std::size_t kMostCopies = 5;

// Bytes that a name may have; the limit of the file systems is 255.
constexpr std::size_t kLongestName = 240;

// The path with its separators as "!", so that it can be a file's name and be read by a person.
std::string PathAsName(const std::string& path) {
    std::string name;
    for (const char c : path) {
        if (c == '/')
            name += '!';
        else if (c == '!')
            name += "%21";
        else if (c == '%')
            name += "%25";
        else
            name += c;
    }
    return name;
}

std::string SumText(std::string_view text) {
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(CheckSum(text)));
    return digits.data();
}

std::string CopyPath(const char* prefix, const std::string& project) {
    if (TempDataFolder.empty()) return "";
    const std::string path = WholePath(project);
    const std::string name = PathAsName(path);
    if (name.size() <= kLongestName) return TempDataFolder + prefix + name;
    const std::string file = PathAsName(std::filesystem::path(path).filename().string());
    const std::size_t tail = std::min(file.size(), kLongestName / 2);
    return TempDataFolder + prefix + SumText(path) + "!" + file.substr(file.size() - tail);
}

// The project of the bytes, if it opens and goes on to its last line end: what a broken-off save leaves does not.
std::optional<ProjectDocument> WholeProject(std::string_view bytes) {
    return bytes.ends_with('\n') ? DocumentIfSound(bytes) : std::nullopt;
}

// What a new project is saved as: there is nothing in it to keep.
bool IsEmpty(const ProjectDocument& project) {
    const PanelInputs& inputs = project.inputs;
    return IsBlank(project.title) && IsBlank(project.description) && inputs.Height == 0 &&
           inputs.DepthCover == 0 && inputs.HoleWidth == 0 && inputs.WebThickness == 0 &&
           inputs.BarrierPillarWidth == 0;
}

// The bytes of a copy; none for one that cannot be read or has been put there as a link.
std::string BytesOfCopy(const std::string& path) {
    std::string bytes;
    std::error_code failure;
    if (!std::filesystem::is_symlink(path, failure)) ReadWholeFile(path, kLargestProject, bytes);
    return bytes;
}

bool IsGoodCopy(const std::string& path) {
    const auto project = WholeProject(BytesOfCopy(path));
    return project && !IsEmpty(*project);
}

// The number that makes the name that of an older copy; 0 for any other name.
std::uint64_t NumberOfOlder(const std::string& name, const std::string& newest) {
    const std::string start = newest + kBeforeNumber;
    if (!name.starts_with(start)) return 0;
    std::uint64_t number = 0;
    const char* end = name.data() + name.size();
    const auto read = std::from_chars(name.data() + start.size(), end, number);
    return read.ec == std::errc() && read.ptr == end ? number : 0;
}

// The older copies by their numbers, the newest first.
std::map<std::uint64_t, std::string, std::greater<>> OlderCopies(const std::string& newest) {
    std::map<std::uint64_t, std::string, std::greater<>> copies;
    const std::string newest_name = std::filesystem::path(newest).filename().string();
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(TempDataFolder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (const auto number = NumberOfOlder(name, newest_name)) copies[number] = TempDataFolder + name;
    }
    return copies;
}

// The newest copy takes the next number. Another program that saves the project may have been quicker.
void NumberNewest(const std::string& newest) {
    const auto older = OlderCopies(newest);
    int failure = EEXIST;
    for (std::uint64_t number = older.empty() ? 1 : older.begin()->first + 1; failure == EEXIST; ++number)
        failure = RenameToFreeName(newest, newest + kBeforeNumber + std::to_string(number));
    if (failure != 0 && failure != ENOENT) Raise(ErrorNumberOfErrno(failure, newest));
}

// Older copies of the same content and those beyond the last five go.
void ThinOut(const std::string& newest, std::string_view bytes) {
    std::size_t kept = 1;
    for (const auto& [number, path] : OlderCopies(newest)) {
        std::error_code ignored;
        if (kept == kMostCopies || BytesOfCopy(path) == bytes)
            std::filesystem::remove(path, ignored);
        else
            ++kept;
    }
}

void KeepWhole(const std::string& project, std::string_view bytes) {
    const std::string newest = KeptCopyPath(project);
    if (BytesOfCopy(newest) == bytes) return;
    NumberNewest(newest);
    ReplaceWholeFile(newest, bytes, {.copy_of = project});
    ThinOut(newest, bytes);
}

void Keep(const std::string& project) {
    const std::string bytes = ReadWholeFile(project, kLargestProject);
    const auto document = WholeProject(bytes);
    if (!document)
        CopyWholeFile(project, CopyPath(kDamagedPrefix, project));
    else if (!IsEmpty(*document))
        KeepWhole(project, bytes);
}

// A new file, an empty one and what is no file at all have nothing to keep.
bool HasContent(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(path, failure) && std::filesystem::file_size(path, failure) > 0 &&
           !failure;
}

bool AskedToGoOn(const std::string& project, const RunTimeError& error) {
    const std::string question =
        "The present content of " + project + " cannot be kept as a copy: " + error.text + " (" +
        std::to_string(error.number) + ")." + std::string(CrLf) + "Save all the same?";
    return Notify(question, box_style::YesNoQuestionNoDefault, ErrorTitle) == box_result::Yes;
}

}  // namespace

std::string KeptCopyPath(const std::string& project) {
    return CopyPath(kPrefix, project);
}

std::vector<std::string> KeptCopies(const std::string& project) {
    std::vector<std::string> copies;
    const std::string newest = KeptCopyPath(project);
    if (newest.empty()) return copies;
    if (FileExists(newest)) copies.push_back(newest);
    for (const auto& [number, path] : OlderCopies(newest)) copies.push_back(path);
    return copies;
}

std::string NewestGoodCopy(const std::string& project) {
    for (const std::string& copy : KeptCopies(project))
        if (IsGoodCopy(copy)) return copy;
    return "";
}

bool KeepPreviousContent(const std::string& project) {
    if (TempDataFolder.empty() || !HasContent(project)) return true;
    try {
        Keep(project);
        return true;
    } catch (const RunTimeError& error) {
        return AskedToGoOn(project, error);
    }
}

void TellKeptCopy(const std::string& project) {
    const std::string copy = NewestGoodCopy(project);
    if (!copy.empty()) LogMessage("The last whole content of this project is kept in: " + copy);
}

}  // namespace tarvokol
