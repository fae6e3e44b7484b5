// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/kept_copy.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/files/file_replacement.h"
#include "core/files/file_system.h"
#include "core/files/text_file.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/project_file.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/folders.h"

namespace tarvokol {
namespace {

constexpr const char* kPrefix = "~bak_";
constexpr const char* kDamagedPrefix = "~bak_damaged";

// Bytes that a name may have; the limit of the file systems is 255.
constexpr std::size_t kLongestName = 240;

// Numbers behind the description, each on a line of its own.
constexpr int kNumbers = 14;

// A project file of more bytes is nothing that this program has written.
constexpr std::size_t kLargestProject = 2 * kLongestText;

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

// FNV-1a, 64 bits: the same on every machine and in every run.
std::string CheckSum(std::string_view text) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(sum));
    return digits.data();
}

// The whole path behind all links, so that one file has one copy, whatever it is called by.
std::string WholePath(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path whole =
        std::filesystem::weakly_canonical(std::filesystem::absolute(path), failure);
    return failure ? path : whole.string();
}

std::string CopyPath(const char* prefix, const std::string& project) {
    if (TempDataFolder.empty()) return "";
    const std::string path = WholePath(project);
    const std::string name = PathAsName(path);
    if (name.size() <= kLongestName) return TempDataFolder + prefix + name;
    const std::string file = PathAsName(std::filesystem::path(path).filename().string());
    const std::size_t tail = std::min(file.size(), kLongestName / 2);
    return TempDataFolder + prefix + CheckSum(path) + "!" + file.substr(file.size() - tail);
}

// True if the bytes go on to the end of a project: what a broken-off save leaves does not.
bool IsWholeProject(std::string_view bytes) {
    if (!bytes.starts_with(ProjectMagic) || !bytes.ends_with('\n')) return false;
    const std::string end_line = "\n" + std::string(DescriptionEnd);
    const std::size_t end = bytes.find(end_line);
    if (end == std::string_view::npos) return false;
    int numbers = -1;  // the rest of the end line itself
    for (std::size_t at = end + 1; (at = bytes.find('\n', at)) != std::string_view::npos; ++at) ++numbers;
    return numbers >= kNumbers;
}

bool HoldsWholeProject(const std::string& path) {
    std::string bytes;
    return ReadWholeFile(path, kLargestProject, bytes) == ReadOutcome::Read && IsWholeProject(bytes);
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

bool KeepPreviousContent(const std::string& project) {
    if (TempDataFolder.empty() || !HasContent(project)) return true;
    const std::string copy = KeptCopyPath(project);
    const bool replaces = !FileExists(copy) || HoldsWholeProject(project);
    try {
        CopyWholeFile(project, replaces ? copy : CopyPath(kDamagedPrefix, project));
        return true;
    } catch (const RunTimeError& error) {
        return AskedToGoOn(project, error);
    }
}

void TellKeptCopy(const std::string& project) {
    const std::string copy = KeptCopyPath(project);
    if (!copy.empty() && FileExists(copy))
        LogMessage("The last whole content of this project is kept in: " + copy);
}

}  // namespace tarvokol
