// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/command_options.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <thread>

#include <CLI/CLI.hpp>

#include "cli/line/arguments.h"
#include "cli/line/word_list.h"
#include "core/runtime/nearest_word.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

CLI::Validator OneOf(const std::vector<std::string>& words) {
    const auto refusal = [words](const std::string& given) -> std::string {
        if (std::count(words.begin(), words.end(), given) > 0) return "";
        return '"' + given + "\" is none of " + Listed(words, ", ") + DidYouMean(NearestWord(given, words));
    };
    return {refusal, '{' + Listed(words, ",") + '}'};
}

std::string WhyNoFile(const std::string& path) {
    std::error_code failure;
    const auto kind = std::filesystem::status(path, failure).type();
    if (kind == std::filesystem::file_type::directory) return '"' + path + "\" is a folder";
    return kind == std::filesystem::file_type::not_found ? '"' + path + "\" is not there" : "";
}

const char* ObjectsOf(ResultOf result) {
    switch (result) {
        case ResultOf::File:
            return "one object per FILE";
        case ResultOf::Row:
            return "one object per row";
        case ResultOf::Command:
            break;
    }
    return "one object";
}

// Rows are written to a file that is named.
const char* PlacesOf(ResultOf result) {
    switch (result) {
        case ResultOf::File:
            return "Of standard output, or of the files in a folder";
        case ResultOf::Command:
            return "Of standard output, or of the file in a folder";
        case ResultOf::Row:
            break;
    }
    return "Of standard output";
}

// A number of threads in plain digits, without a zero in front.
std::string WhyNoThreads(const std::string& text) {
    constexpr double kMost = 1024;
    const bool digits =
        !text.empty() && text.front() != '0' && text.find_first_not_of("0123456789") == std::string::npos;
    if (digits && WholeNumber(text).value_or(kMost + 1) <= kMost) return "";
    return "\"" + text + "\" is not a whole number from 1 to 1024";
}

bool IsArgument(const OptionFacts& facts) {
    return !facts.spelling.starts_with('-');
}

}  // namespace

void CommandOptions::Refine(CLI::Option& option, const OptionFacts& facts) {
    option.required(facts.required);
    if (IsArgument(facts) || !facts.value.empty()) option.type_name(facts.value);
    if (!facts.choices.empty()) option.check(OneOf(facts.choices));
    if (!facts.offers.empty()) option.type_name(facts.value + ":{" + Listed(facts.offers, ",") + '}');
    if (facts.existing_file) option.check(CLI::Validator(WhyNoFile, "FILE"));
    if (facts.refusal) option.check(facts.refusal);
}

void CommandOptions::Flag(const OptionFacts& facts, bool& value) {
    command_.add_flag(facts.spelling, value, facts.help)->disable_flag_override();
}

void CommandOptions::Text(const OptionFacts& facts, std::string& value) {
    CLI::Option& option = *command_.add_option(facts.spelling, value, facts.help);
    Refine(option, facts);
    // Each version of the library has a form of its own for what counts where nothing is given.
    if (facts.shows_default) option.option_text(option.get_type_name() + "=" + value);
    texts_.push_back(&value);
}

void CommandOptions::Texts(const OptionFacts& facts, std::vector<std::string>& values) {
    CLI::Option& option = *command_.add_option(facts.spelling, values, facts.help);
    if (!IsArgument(facts)) option.take_all()->expected(1);
    Refine(option, facts);
    lists_.push_back(&values);
}

void CommandOptions::UnprotectValues() {
    for (std::string* text : texts_) Unprotect(*text);
    for (std::vector<std::string>* list : lists_)
        for (std::string& text : *list) Unprotect(text);
}

void AddSettings(CommandOptions& command, Options& options, ResultOf result) {
    command.Text({.spelling = "--settings",
                  .help = "Configuration file to read (default: the built-in values)",
                  .value = "FILE.INI",
                  .existing_file = true},
                 options.settings);
    command.Flag({.spelling = "--json", .help = std::string("Print JSON Lines, ") + ObjectsOf(result)},
                 options.json);
    command.Flag({.spelling = "-q,--quiet", .help = "No progress line"}, options.quiet);
}

void AddOutput(CommandOptions& command, Options& options, ResultOf result, const std::string& help,
               const std::vector<std::string>& formats) {
    command.Text({.spelling = "-o,--output",
                  .help = help + "; `-`: standard output",
                  .value = "PATH",
                  .refusal = WhyEmpty},
                 options.output);
    options.has_formats = !formats.empty();
    if (options.has_formats)
        command.Text(
            {.spelling = "--format", .help = PlacesOf(result), .value = "FORMAT", .choices = formats},
            options.format);
    command.Flag({.spelling = "--force", .help = "Replace existing files"}, options.force);
    command.Flag({.spelling = "--stdin-project", .help = "The project `-` is read from standard input"},
                 options.stdin_project);
}

void AddFiles(CommandOptions& command, Options& options, const std::string& output_help,
              const std::vector<std::string>& formats) {
    AddSettings(command, options, ResultOf::File);
    AddOutput(command, options, ResultOf::File, output_help, formats);
    command.Flag(
        {.spelling = "-0,--null", .help = "Paths on standard input end in NUL, as after find -print0"},
        options.null_ended);
    command.Texts({.spelling = "FILE",
                   .help = "Projects; `-` alone reads their paths from standard input",
                   .required = true},
                  options.files);
}

void AddThreads(CommandOptions& command, Options& options) {
    command.Text({.spelling = "--threads",
                  .help = "Threads to calculate on (default: one per core)",
                  .value = "N",
                  .refusal = WhyNoThreads},
                 options.threads);
}

unsigned ThreadsOf(const Options& options) {
    if (!options.threads.empty()) return static_cast<unsigned>(*WholeNumber(options.threads));
    return std::max(1U, std::thread::hardware_concurrency());
}

void AddBareHeader(CommandOptions& command, bool& value) {
    command.Flag({.spelling = "--bare-header", .help = "Names of columns without their units"}, value);
}

std::string WhyEmpty(const std::string& text) {
    return text.empty() ? "\"\" is empty" : "";
}

std::string DidYouMean(const std::string& nearest) {
    return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

}  // namespace tarvokol::cli
