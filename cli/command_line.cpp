// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/command_line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "cli/commands/commands.h"
#include "cli/line/arguments.h"
#include "cli/line/build_name.h"
#include "cli/line/nearest_word.h"
#include "cli/line/standard_input.h"
#include "core/files/file_replacement.h"
#include "core/files/os_errors.h"
#include "core/headless/headless_platform.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

// The command that the arguments name, to be run once they are all read.
using Command = std::function<int()>;

std::string DidYouMean(const std::string& nearest) {
    return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

// One of these words; another is refused with the nearest of them.
CLI::Validator OneOf(const std::vector<std::string>& words) {
    std::string listed = "{";
    for (const std::string& word : words) listed += (listed.size() > 1 ? "," : "") + word;
    listed += '}';
    const auto refusal = [words, listed](const std::string& given) -> std::string {
        if (std::count(words.begin(), words.end(), given) > 0) return "";
        return given + " not in " + listed + DidYouMean(NearestWord(given, words));
    };
    return {refusal, listed};
}

void AddSettings(CLI::App& command, Options& options) {
    command
        .add_option("--settings", options.settings,
                    "Configuration file to read (default: the built-in values)")
        ->check(CLI::ExistingFile)
        ->type_name("FILE.INI");
    command.add_flag("--json", options.json, "Print JSON Lines, one object a FILE");
    command.add_flag("-q,--quiet", options.quiet, "No progress line");
}

// An empty word is most often a variable of a script that nobody has set.
std::string WhyEmpty(const std::string& text) {
    return text.empty() ? "\"\" is empty" : "";
}

void AddOutput(CLI::App& command, Options& options, const std::string& output_help,
               const std::vector<std::string>& formats) {
    command.add_option("-o,--output", options.output, output_help + "; `-`: standard output")
        ->type_name("PATH")
        ->check(WhyEmpty);
    if (!formats.empty())
        command.add_option("--format", options.format, "Of standard output, or of the files in a folder")
            ->check(OneOf(formats))
            ->type_name("FORMAT");
    command.add_flag("--force", options.force, "Replace existing files");
    command.add_flag("--stdin-project", options.stdin_project, "The project `-` is read from standard input");
}

void AddFiles(CLI::App& command, Options& options, const std::string& output_help,
              const std::vector<std::string>& formats) {
    AddSettings(command, options);
    AddOutput(command, options, output_help, formats);
    command.add_option("FILE", options.files, "Projects; `-` alone reads their paths from standard input")
        ->required()
        ->type_name("");
}

void AddFileCommands(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    auto* results = app.add_subcommand("results", "Input check, analysis and report");
    AddFiles(*results, options, "Write the report: .txt, .pdf or .json, or a folder", {"txt", "pdf", "json"});
    results->callback([&] { chosen = [&] { return RunResults(options, host); }; });

    auto* size = app.add_subcommand("size", "Suggested web and barrier sizes, of a metric project in inches");
    AddFiles(*size, options, "Write the sizes: .json, or a folder", {"json"});
    size->callback([&] { chosen = [&] { return RunSize(options, host); }; });

    auto* save = app.add_subcommand("save", "Read a project and write it again");
    AddFiles(*save, options, "The file or folder to write (required)", {});
    save->callback([&] { chosen = [&] { return RunSave(options, host); }; });
}

void AddCurveCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string kind;
    auto* curve =
        app.add_subcommand("curve", "A parametric curve; web and barrier of a metric project in inches");
    curve->add_option("KIND", kind, "sf-height, sf-depth, sf-hole, web or barrier")
        ->required()
        ->check(OneOf({"sf-height", "sf-depth", "sf-hole", "web", "barrier"}))
        ->type_name("");
    AddFiles(*curve, options, "Write the curve: .csv, .xlsx, .png, .svg, .pdf or .json, or a folder",
             {"csv", "xlsx", "png", "svg", "pdf", "json"});
    curve->callback([&] { chosen = [&] { return RunCurve(options, host, kind); }; });
}

void AddPlanCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string mode = "dimensions";
    static std::string view = "window";
    auto* plan = app.add_subcommand("plan", "The panel plan");
    plan->add_option("--mode", mode, "What the pillars' labels show")
        ->check(OneOf({"dimensions", "strength", "capacity"}))
        ->capture_default_str();
    plan->add_option("--view", view, "Drawn as in the plot window or in the parameters dialog")
        ->check(OneOf({"window", "preview"}))
        ->capture_default_str();
    AddFiles(*plan, options, "Write the plan: .svg, .png, .pdf, .csv or .json, or a folder",
             {"svg", "png", "pdf", "csv", "json"});
    plan->callback([&] { chosen = [&] { return RunPlan(options, host, mode, view); }; });
}

void AddConvertCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string target;
    auto* convert = app.add_subcommand("convert", "Convert a project to the other unit system and save it");
    convert->add_option("--to", target, "Target unit system")
        ->required()
        ->check(OneOf({"english", "metric"}));
    AddFiles(*convert, options, "The file or folder to write (default: beside the original)", {});
    convert->callback([&] { chosen = [&] { return RunConvert(options, host, target); }; });
}

void AddUnitsCommand(CLI::App& app, Options& options, Command& chosen) {
    static std::string quantity;
    static std::string unit;
    static std::string value;
    auto* units = app.add_subcommand("units", "The unit calculator");
    AddSettings(*units, options);
    units->add_option("QUANTITY", quantity, "length, load, load-grad, stress or stress-grad")
        ->required()
        ->check(OneOf({"length", "load", "load-grad", "stress", "stress-grad"}))
        ->type_name("");
    units->add_option("UNIT", unit, "An option caption such as psf or lbsF/ft")->required()->type_name("");
    units->add_option("VALUE", value, "What would be typed")->required()->type_name("");
    units->callback([&] { chosen = [&] { return RunUnits(options.json, quantity, unit, value); }; });
}

void AddSettingsCommand(CLI::App& app, Options& options, Command& chosen) {
    auto* settings = app.add_subcommand("settings", "The effective settings after reading");
    AddSettings(*settings, options);
    settings
        ->add_option("FILE.INI", options.settings,
                     "Configuration file to read (default: the built-in values)")
        ->check(CLI::ExistingFile)
        ->type_name("");
    settings->callback([&] { chosen = [&] { return RunSettings(options.json, options.settings); }; });
}

// A number of threads in plain digits; the library would read 010 as 8.
std::string WhyNoThreads(const std::string& text) {
    constexpr double kMost = 1024;
    const bool digits =
        !text.empty() && text.front() != '0' && text.find_first_not_of("0123456789") == std::string::npos;
    if (digits && WholeNumber(text).value_or(kMost + 1) <= kMost) return "";
    return "\"" + text + "\" is not a whole number from 1 to 1024";
}

void AddStudy(CLI::App& command, StudyOptions& options, const std::string& output_help,
              const std::vector<std::string>& formats) {
    AddSettings(command, options.common);
    AddOutput(command, options.common, output_help, formats);
    command.add_option("--threads", options.threads, "Threads to calculate on (default: one a core)")
        ->type_name("N")
        ->check(WhyNoThreads);
    command.add_option("PROJECT", options.project, "The project to start from")->required()->type_name("");
}

void AddRowOptions(CLI::App& command, StudyOptions& options) {
    command.add_flag("--size", options.sizes,
                     "The suggested sizes, too: SuggestedWeb and SuggestedBarrier, inches");
}

constexpr const char* kFieldsFooter =
    "Fields, in the project's units: Height, DepthCover, HoleWidth, WebThickness, BarrierPillarWidth, "
    "NumberHoles,\n"
    "CoalStrength, UnitWeight, AbutmentAngle, SFWeb, SFBarrier.\n\n";

void AddSweepCommand(CLI::App& app, StudyOptions& options, HeadlessPlatform& host, Command& chosen) {
    auto* sweep =
        app.add_subcommand("sweep", "Every combination of the values that fields of a project are given");
    AddStudy(*sweep, options, "Write rows (.csv, .json, .xlsx) or a picture (.png, .svg, .pdf)",
             {"csv", "json", "xlsx", "png", "svg", "pdf"});
    AddRowOptions(*sweep, options);
    sweep
        ->add_option(
            "--vary", options.vary,
            "FIELD=FIRST:LAST:STEP, FIELD=FIRST:LAST/COUNT or FIELD=V1,V2,V3; once a field, the last one "
            "given runs fastest")
        ->required()
        ->take_all()
        ->expected(1)
        ->type_name("FIELD=VALUES");
    sweep
        ->add_option(
            "--of", options.of,
            "The figure of a picture: Overall (default of a map), WebsOnly, BarrierPillar, ExtractionRatio, "
            "SuggestedWeb, SuggestedBarrier")
        ->type_name("FIGURE");
    sweep->footer(std::string(kFieldsFooter) +
                  "Examples:\n"
                  "  tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 > depth.csv\n"
                  "  tarvokol-cli sweep panel.TKL --vary WebThickness=2:12:0.5 --vary DepthCover=50:400:10 "
                  "--of WebsOnly "
                  "-o map.svg\n"
                  "  tarvokol-cli sweep panel.TKL --vary NumberHoles=5,10,15,20 --size -o sizes.xlsx");
    sweep->callback([&] { chosen = [&] { return RunSweep(options, host); }; });
}

void AddTableCommand(CLI::App& app, StudyOptions& options, HeadlessPlatform& host, Command& chosen) {
    auto* table = app.add_subcommand(
        "table", "A table of panels: each row of a CSV file sets some fields of a project");
    AddStudy(*table, options, "Write the rows: .csv, .json or .xlsx", {"csv", "json", "xlsx"});
    AddRowOptions(*table, options);
    table
        ->add_option(
            "ROWS.csv", options.rows,
            "The table: a header with names of fields and any other columns; `-` reads standard input")
        ->required()
        ->type_name("");
    table->footer(std::string(kFieldsFooter) +
                  "Examples:\n"
                  "  tarvokol-cli table panel.TKL boreholes.csv > factors.csv\n"
                  "  tarvokol-cli table panel.TKL boreholes.csv --size -o factors.xlsx\n"
                  "  cut -d, -f1-3 survey.csv | tarvokol-cli table panel.TKL - --json");
    table->callback([&] { chosen = [&] { return RunTable(options, host); }; });
}

void AddRiskCommand(CLI::App& app, StudyOptions& options, HeadlessPlatform& host, Command& chosen) {
    auto* risk = app.add_subcommand(
        "risk", "How likely the factors lie below their targets when figures are uncertain");
    AddStudy(*risk, options, "Write the summary (.txt, .json) or a picture (.png, .svg, .pdf)",
             {"txt", "json", "png", "svg", "pdf"});
    risk->add_option(
            "--random", options.random,
            "FIELD=normal:MEAN:SD, lognormal:MEAN:SD, uniform:LO:HI or triangular:LO:MODE:HI; a figure that "
            "ends in % is a share of the project's own; once a field")
        ->required()
        ->take_all()
        ->expected(1)
        ->type_name("FIELD=DISTRIBUTION");
    risk->add_option("--correlate", options.correlate,
                     "FIELD,FIELD=R: correlation of a pair of normal fields")
        ->take_all()
        ->expected(1)
        ->type_name("A,B=R");
    risk->add_option("--samples", options.samples, "Number of samples (default 100000)")
        ->type_name("N")
        ->check(WhyEmpty);
    risk->add_option("--seed", options.seed, "Seed of the random numbers (default 1)")
        ->type_name("S")
        ->check(WhyEmpty);
    risk->add_flag("--plain", options.plain, "Independent draws instead of a Latin hypercube");
    risk->add_option("--samples-out", options.samples_out, "Write all samples as CSV")
        ->type_name("FILE.csv")
        ->check(WhyEmpty);
    risk->footer(std::string(kFieldsFooter) +
                 "Examples:\n"
                 "  tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15%\n"
                 "  tarvokol-cli risk panel.TKL --random CoalStrength=normal:900:135 --random "
                 "DepthCover=triangular:90%:100%:120% -o risk.png\n"
                 "  tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --samples 1000000 --json");
    risk->callback([&] { chosen = [&] { return RunRiskCommand(options, host); }; });
}

void UnprotectPaths(Options& options) {
    for (std::string& file : options.files) Unprotect(file);
    Unprotect(options.output);
    Unprotect(options.settings);
}

// What could not be printed to standard output is an output that could not be written. Some systems tell only when a
// file is closed that something written was lost.
int StatusOfOutput(int status) {
    errno = 0;
    std::cout.flush();
    const bool written = static_cast<bool>(std::cout) && (::close(STDOUT_FILENO) == 0 || errno == EBADF);
    if (written) return status;
    const std::string cause = errno != 0 ? ErrorText(ErrorNumberOfErrno(errno)) : "could not be written";
    std::cerr << "standard output: " << cause << '\n';
    return exit_status::NotWritten;
}

// Standard output as text is what comes without -o; as JSON it is what --json prints.
void SettleStandardOutput(Options& options) {
    if (!options.format.empty() && options.output.empty()) options.output = kStandardStream;
    if (options.output != kStandardStream) return;
    if (options.format == "json") options.json = true;
    if (options.format.empty() || options.format == "json") options.output.clear();
}

// The configuration file is read before anything is done, also for a command that asks no setting.
int RunChosen(const Command& chosen, const Options& options) {
    try {
        AdmitStandardProject(options);
        ReadConfiguration(options.settings);
        return chosen();
    } catch (const UsageError& error) {
        std::cerr << error.text << '\n';
        return exit_status::WrongUsage;
    }
}

std::vector<std::string> CommandNames(CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

int TellWrongWord(const std::string& word, const std::string& kind, const std::string& nearest) {
    std::cerr << word << " is no " << kind << DidYouMean(nearest)
              << "\nRun with --help for more information.\n";
    return exit_status::WrongUsage;
}

// The first option given that the command named does not have; empty if there is none.
std::string UnknownOption(const CLI::App& app) {
    for (const std::string& word : app.remaining(true))
        if (word.size() > 1 && word.front() == '-' && word != "--") return word.substr(0, word.find('='));
    return "";
}

int TellUnknownOption(CLI::App& app, const std::string& word) {
    const auto named = app.get_subcommands();
    const CLI::App& owner = named.empty() ? app : *named.front();
    std::vector<std::string> known;
    for (const CLI::Option* option : owner.get_options())
        for (const std::string& name : option->get_lnames()) known.push_back("--" + name);
    if (std::count(known.begin(), known.end(), word) > 0) {
        std::cerr << word << ": the options of a command stand behind its name\n";
        return exit_status::WrongUsage;
    }
    const std::string kind = named.empty() ? "option" : "option of " + owner.get_name();
    return TellWrongWord(word, kind, word.starts_with("--") ? NearestWord(word, known) : "");
}

// What the library tells of arguments that it cannot read, and of questions such as --help; but for words that are
// meant to be others.
int StatusOfParseError(CLI::App& app, const CLI::ParseError& error) {
    const std::string option = error.get_exit_code() == 0 ? "" : UnknownOption(app);
    if (!option.empty()) return TellUnknownOption(app, option);
    return app.exit(error) == 0 ? exit_status::Done : exit_status::WrongUsage;
}

// Ends the process as the signal would have, without the files that it was building.
void TidyUpAndEnd(int signal) {
    RemoveUnfinishedFiles();
    ::raise(signal);
}

// A signal that the caller has put off, as nohup does, stays so.
void TidyUpOnSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
        action.sa_handler = TidyUpAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    TidyUpOnSignals();
    std::ios::sync_with_stdio(false);
    // Many objects a call of the system.
    static std::array<char, 65536> output_room;
    std::cout.rdbuf()->pubsetbuf(output_room.data(), output_room.size());
    HeadlessPlatform host;
    host.Install();
    Options options;
    Command chosen;
    CLI::App app("Stability design of highwall mining panels, without a window", "tarvokol-cli");
    app.set_version_flag("--version", BuildName());
    app.require_subcommand(1);
    AddFileCommands(app, options, host, chosen);
    AddCurveCommand(app, options, host, chosen);
    AddPlanCommand(app, options, host, chosen);
    AddConvertCommand(app, options, host, chosen);
    AddUnitsCommand(app, options, chosen);
    AddSettingsCommand(app, options, chosen);
    StudyOptions study;
    AddSweepCommand(app, study, host, chosen);
    AddTableCommand(app, study, host, chosen);
    AddRiskCommand(app, study, host, chosen);
    const std::string command = argc > 1 ? argv[1] : "";
    const std::vector<std::string> known = CommandNames(app);
    if (argc > 1 && !command.starts_with('-') && std::count(known.begin(), known.end(), command) == 0)
        return TellWrongWord('"' + command + '"', "command", NearestWord(command, known));
    try {
        app.parse(Arguments(argc, argv));
    } catch (const CLI::ParseError& error) {
        return StatusOfOutput(StatusOfParseError(app, error));
    }
    UnprotectPaths(options);
    UnprotectPaths(study.common);
    for (std::string* path : {&study.project, &study.rows, &study.samples_out}) Unprotect(*path);
    study.common.files = {study.project};
    const bool has_formats = app.get_subcommands().front()->get_option_no_throw("--format") != nullptr;
    for (Options* given : {&options, &study.common})
        if (has_formats) SettleStandardOutput(*given);
    const bool is_study = !study.project.empty();
    return StatusOfOutput(RunChosen(chosen, is_study ? study.common : options));
}

}  // namespace tarvokol::cli
