// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a configuration file: reading stays within the ranges, a changed key reads back, the rest
// stays.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

#include "core/headless/headless_platform.h"
#include "core/messages/history_log.h"
#include "core/runtime/charset.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/ini_file.h"
#include "core/settings/main_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/recent_file_settings.h"

using namespace tarvokol;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

bool Within(double value, double low, double high) {
    return value >= low && value <= high;
}

void PrepareOnce() {
    static HeadlessPlatform host;
    static bool prepared = false;
    if (prepared) return;
    prepared = true;
    host.Install();
    const auto folder = std::filesystem::temp_directory_path() / "tarvokol-fuzz";
    std::filesystem::create_directories(folder);
    PersonalDataFolder = folder.string() + "/";
    ProjectExtension = "TKL";
    IniStamp = "050924";
}

// A file of these bytes that has a path, and no place on a disk.
std::string PathOf(const std::string& bytes) {
    static const int descriptor = ::memfd_create("settings", 0);
    Require(::ftruncate(descriptor, 0) == 0);
    Require(::pwrite(descriptor, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
    return "/proc/self/fd/" + std::to_string(descriptor);
}

void ReadAsSettings(const std::string& bytes) {
    IniPath = PathOf(bytes);
    ReadIniVersion();
    ReadSettings(RangeRepair::KeepInMemory);
    Require(Within(MaxDisplaySize, 4096, 16384) && Within(DisplayFontSize, 7, 24));
    Require(Within(GraphStyle, 1, 3) && Within(SymbolSize, 3, 20) && Within(MaxLastFiles, 0, 4));
    Require(Within(OptionsRecord.DefaultAbutment, 0, 90) && Within(OptionsRecord.DefaultSFWeb, 0, 6));
    Require(Within(OptionsRecord.PlotRangeMin, 0, 100) && Within(OptionsRecord.PlotRangeMax, 0, 100));
    Require(!DisplayFontName.empty() && Length(ExternalEditor) <= 254 && !DataPath.empty());
}

void ChangeAKey(const std::string& bytes) {
    IniDocument document = IniDocument::FromText(DecodeText(bytes, DetectCharset(bytes)));
    const std::string other = document.Section("Settings").Get("DataPath");
    document.Put("Settings", "KeepFileNames", "17");
    Require(document.Section("settings").Get(" keepfilenames ") == "17");
    Require(document.Section("Settings").Get("DataPath") == other);
    const std::string once = document.Text();
    document.Put("Settings", "KeepFileNames", "17");
    Require(document.Text() == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PrepareOnce();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    ReadAsSettings(bytes);
    ChangeAKey(bytes);
    return 0;
}
