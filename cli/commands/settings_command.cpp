// SPDX-License-Identifier: GPL-3.0-or-later
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/output/json.h"
#include "core/program/start_up.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/key_tables.h"

namespace tarvokol::cli {
namespace {

// The name under which a key is read; the reader pays no heed to blanks around it.
std::string ReadName(const KeyRule& rule) {
    return Trim(rule.read_name);
}

Json ValueJson(const KeyRule& rule) {
    if (auto* const* number = std::get_if<int16_t*>(&rule.value)) return **number;
    if (auto* const* single = std::get_if<float*>(&rule.value))
        return NumberJson(static_cast<double>(**single));
    return *std::get<std::string*>(rule.value);
}

std::string SettingsJson() {
    Json sections = Json::object();
    for (int selector = section::First; selector <= section::Last; ++selector) {
        Json& keys = sections[SectionName(selector)] = Json::object();
        for (const KeyRule& rule : KeysOf(selector)) keys[ReadName(rule)] = ValueJson(rule);
    }
    return JsonLine(sections);
}

// One line a key for people, fractions as a single's general text.
std::string ListText() {
    std::string text;
    for (int selector = section::First; selector <= section::Last; ++selector)
        for (const KeyRule& rule : KeysOf(selector))
            text += std::string(SectionName(selector)) + '.' + ReadName(rule) + '=' + KeyText(rule) + '\n';
    return text;
}

}  // namespace

void ReadConfiguration(const std::string& ini_path) {
    if (ini_path.empty()) return;
    IniPath = ini_path;
    if (ReadSettings(RangeRepair::KeepInMemory)) return;
    throw UsageError{"--settings: " + ini_path + ": cannot be read, or is larger than 16 MB"};
}

int RunSettings(bool json, const std::string& ini_path) {
    ResetProgram();
    ReadConfiguration(ini_path);
    std::cout << (json ? SettingsJson() : ListText());
    return exit_status::Done;
}

}  // namespace tarvokol::cli
