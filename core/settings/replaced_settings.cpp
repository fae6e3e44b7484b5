// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/replaced_settings.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

#include "core/files/file_replacement.h"
#include "core/files/file_system.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/ini_file.h"

namespace tarvokol {
namespace {

std::uint64_t NumberOfStamp(const std::string& stamp) {
    std::uint64_t number = 0;
    const char* end = stamp.data() + stamp.size();
    const auto read = std::from_chars(stamp.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? number : 0;
}

bool IsOfNewerVersion(const std::string& bytes) {
    const std::string stamp = IniDocument::FromText(bytes).Section("Version").Get("INIFileVersion");
    return stamp.size() == IniStamp.size() && NumberOfStamp(stamp) > NumberOfStamp(IniStamp);
}

// Why a file that somebody has worked on cannot be used; empty for one of an older version or of no text at all.
std::string ReasonToTell(const std::string& bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF"sv)) return "it begins with a byte order mark";
    if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv)) return "it is written in UTF-16";
    if (bytes.find('\r') != std::string::npos && bytes.find('\n') == std::string::npos)
        return "its lines end in CR alone";
    return IsOfNewerVersion(bytes) ? "a newer version of the program has written it" : "";
}

// A free name, or the one under which the same content lies.
std::string PlaceOf(const std::string& bytes) {
    for (int number = 1;; ++number) {
        const std::string path = IniPath + ".kept-" + std::to_string(number);
        std::string kept;
        if (ReadWholeFile(path, kLargestIniFile, kept) == ReadOutcome::Missing || kept == bytes) return path;
    }
}

}  // namespace

ReplacedSettings KeepReplacedSettings() {
    std::string bytes;
    if (ReadWholeFile(IniPath, kLargestIniFile, bytes) != ReadOutcome::Read || bytes.empty()) return {};
    const ReplacedSettings replaced{true, PlaceOf(bytes), ReasonToTell(bytes)};
    try {
        if (!FileExists(replaced.place)) ReplaceWholeFile(replaced.place, bytes, {.copy_of = IniPath});
    } catch (const RunTimeError&) {
        return {.may_replace = false, .place = "", .reason = ""};
    }
    return replaced;
}

void TellReplacedSettings(const ReplacedSettings& replaced) {
    if (replaced.place.empty()) return;
    if (replaced.reason.empty()) {
        LogMessage("Settings of another version are kept in: " + replaced.place);
        return;
    }
    const std::string line_end(CrLf);
    Notify("The settings file cannot be used: " + replaced.reason + "." + line_end + IniPath + line_end +
               line_end + "The program goes on with new settings. The file is kept as:" + line_end +
               replaced.place,
           box_style::Exclamation);
}

}  // namespace tarvokol
