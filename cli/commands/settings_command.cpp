// SPDX-License-Identifier: GPL-3.0-or-later
#include <iostream>

#include "cli/commands/commands.h"
#include "cli/line/settings_file.h"
#include "cli/output/json.h"
#include "cli/output/said_lines.h"
#include "core/program/start_up.h"
#include "core/runtime/text.h"
#include "core/settings/key_tables.h"

namespace tarvokol::cli {
namespace {

// The name under which a key is read; the reader pays no heed to blanks around it.
std::string ReadName(const KeyRule& rule) {
    return Trim(rule.read_name);
}

void AddValue(JsonMembers& keys, const KeyRule& rule) {
    const std::string name = ReadName(rule);
    if (auto* const* number = std::get_if<int16_t*>(&rule.value))
        keys.Add(name, **number);
    else if (auto* const* single = std::get_if<float*>(&rule.value))
        keys.Add(name, static_cast<double>(**single));
    else
        keys.Add(name, *std::get<std::string*>(rule.value));
}

std::string SettingsJson() {
    JsonMembers sections;
    for (int selector = section::First; selector <= section::Last; ++selector) {
        JsonMembers keys;
        for (const KeyRule& rule : KeysOf(selector)) AddValue(keys, rule);
        sections.Add(SectionName(selector), keys);
    }
    return sections.Line();
}

// One line a key for people, fractions as a single's general text.
std::string ListText() {
    std::string text;
    for (int selector = section::First; selector <= section::Last; ++selector)
        for (const KeyRule& rule : KeysOf(selector))
            text += std::string(SectionName(selector)) + '.' + ReadName(rule) + '=' + KeyText(rule) + '\n';
    return text;
}

class Settings : public Command {
  public:
    std::string Name() const override { return "settings"; }
    std::string Summary() const override { return "The effective settings after reading"; }

    void Describe(CommandOptions& options) override {
        AddSettings(options, options_, ResultOf::Command);
        options.Text({.spelling = "FILE.INI",
                      .help = "Configuration file to read (default: the built-in values)",
                      .existing_file = true},
                     options_.settings);
    }

    int Run(HeadlessPlatform& /*host*/) override {
        ResetProgram();
        ReadConfiguration(options_.settings);
        std::cout << (options_.json ? SettingsJson() : ForStandardOutput(ListText()));
        return exit_status::Done;
    }
};

}  // namespace

std::unique_ptr<Command> SettingsCommand() {
    return std::make_unique<Settings>();
}

}  // namespace tarvokol::cli
