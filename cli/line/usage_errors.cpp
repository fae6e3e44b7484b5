// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/usage_errors.h"

#include <algorithm>
#include <iostream>

#include "cli/line/arguments.h"
#include "cli/line/command_options.h"
#include "cli/line/options.h"
#include "core/runtime/nearest_word.h"
#include "core/runtime/shown_text.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kProgram = "tarvokol-cli";

std::string Caller(const std::string& command) {
    return std::string(kProgram) + (command.empty() ? "" : ' ' + command);
}

// The command that was named, or the program where none was.
const CLI::App& OwnerOf(const CLI::App& app) {
    const auto named = app.get_subcommands();
    return named.empty() ? app : *named.front();
}

std::string CommandOf(const CLI::App& app) {
    const CLI::App& owner = OwnerOf(app);
    return &owner == &app ? "" : owner.get_name();
}

std::string Spelled(const std::string& word) {
    return word.substr(0, word.starts_with("--") ? word.find('=') : 2);
}

bool IsOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-' && word != "--";
}

// A word that the library has left over, without what protects it.
std::string LeftOver(const CLI::App& app, bool (*asked)(const std::string&)) {
    for (std::string word : app.remaining(true)) {
        Unprotect(word);
        if (asked(word)) return word;
    }
    return "";
}

std::string WhatIsUnknown(const CLI::App& app, const std::string& option) {
    const CLI::App& owner = OwnerOf(app);
    std::vector<std::string> known;
    for (const CLI::Option* one : owner.get_options())
        for (const std::string& name : one->get_lnames()) known.push_back("--" + name);
    if (std::count(known.begin(), known.end(), option) > 0)
        return option + ": the options of a command stand after its name";
    const std::string nearest = option.starts_with("--") ? NearestWord(option, known) : "";
    return option + " is no option" + DidYouMean(nearest);
}

std::string WhatIsMissing(const CLI::App& app) {
    const CLI::App& owner = OwnerOf(app);
    if (&owner == &app) return "no command is given";
    for (const CLI::Option* option : owner.get_options())
        if (option->get_required() && option->count() == 0) return option->get_name() + " is missing";
    return "";
}

// An option without its value, a flag with one, or an option that takes one value and is given several.
std::string WhatDoesNotMatch(const CLI::App& app, const std::vector<std::string>& words) {
    const CLI::App& owner = OwnerOf(app);
    for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        if (!IsOption(words[i])) continue;
        const CLI::Option* const option = owner.get_option_no_throw(Spelled(words[i]));
        if (option == nullptr) continue;
        const bool is_flag = option->get_items_expected_max() == 0 || option->get_type_size() == 0;
        const bool has_value = Spelled(words[i]) != words[i];
        if (is_flag && has_value && words[i].starts_with("--")) return Spelled(words[i]) + " takes no value";
        if (!is_flag && !has_value && i + 1 == words.size()) return words[i] + ": its value is missing";
    }
    for (const CLI::Option* option : owner.get_options())
        if (option->get_multi_option_policy() == CLI::MultiOptionPolicy::Throw && option->count() > 1)
            return option->get_name() + " is given " + std::to_string(option->count()) +
                   " times and takes one value";
    return "";
}

std::string WhatIsWrong(const CLI::App& app, const CLI::ParseError& error,
                        const std::vector<std::string>& words) {
    const std::string option = Spelled(LeftOver(app, IsOption));
    if (!option.empty()) return WhatIsUnknown(app, option);
    if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) return error.what();
    if (std::string mismatch = WhatDoesNotMatch(app, words); !mismatch.empty()) return mismatch;
    if (std::string missing = WhatIsMissing(app); !missing.empty()) return missing;
    const std::string word = LeftOver(app, [](const std::string& left) { return left != "--"; });
    return word.empty() ? error.what() : '"' + word + "\" is one argument too many";
}

}  // namespace

int TellUsage(const std::string& command, const std::string& text) {
    std::cerr << WithControlsShown(Caller(command) + ": " + text) << '\n';
    return exit_status::WrongUsage;
}

int TellUsageAndMore(const std::string& command, const std::string& text) {
    const int status = TellUsage(command, text);
    std::cerr << "Run " << Caller(command) << " --help for more information.\n";
    return status;
}

std::string NoneOf(const std::string& word, const std::string& kind, const std::vector<std::string>& known) {
    return '"' + word + "\" is no " + kind + DidYouMean(NearestWord(word, known));
}

int TellUnreadable(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& words) {
    return TellUsageAndMore(CommandOf(app), WhatIsWrong(app, error, words));
}

}  // namespace tarvokol::cli
