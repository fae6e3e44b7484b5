// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/command_line.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "cli/commands.h"
#include "core/headless/headless_platform.h"
#include "core/report/report_builder.h"
#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol::cli {
namespace {

// The command that the arguments name, to be run once they are all read.
using Command = std::function<int()>;

void AddSettings(CLI::App& command, Options& options) {
    command
        .add_option("--settings", options.settings,
                    "Configuration file to read (default: the built-in values)")
        ->check(CLI::ExistingFile)
        ->type_name("FILE.INI");
    command.add_flag("--json", options.json, "Print JSON Lines, one object a FILE");
    command.add_flag("--quiet", options.quiet, "No progress line");
}

void AddFiles(CLI::App& command, Options& options, const std::string& output_help) {
    AddSettings(command, options);
    command.add_option("-o", options.output, output_help)->type_name("PATH");
    command.add_flag("--force", options.force, "Replace existing files");
    command.add_option("FILE", options.files, "Projects; `-` alone reads their paths from standard input")
        ->required()
        ->type_name("");
}

void AddFileCommands(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    auto* results = app.add_subcommand("results", "Input check, analysis and report");
    AddFiles(*results, options, "Write the report: .txt, .pdf or .json, or a folder");
    results->callback([&] { chosen = [&] { return RunResults(options, host); }; });

    auto* size = app.add_subcommand("size", "Suggested web and barrier sizes");
    AddFiles(*size, options, "Write the sizes: .json, or a folder");
    size->callback([&] { chosen = [&] { return RunSize(options, host); }; });

    auto* save = app.add_subcommand("save", "Read a project and write it again");
    AddFiles(*save, options, "The file or folder to write (required)");
    save->callback([&] { chosen = [&] { return RunSave(options, host); }; });
}

void AddCurveCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string kind;
    auto* curve = app.add_subcommand("curve", "A parametric curve");
    curve->add_option("KIND", kind, "sf-height, sf-depth, sf-hole, web or barrier")
        ->required()
        ->check(CLI::IsMember({"sf-height", "sf-depth", "sf-hole", "web", "barrier"}))
        ->type_name("");
    AddFiles(*curve, options, "Write the curve: .csv, .xlsx, .png, .svg, .pdf or .json, or a folder");
    curve->callback([&] { chosen = [&] { return RunCurve(options, host, kind); }; });
}

void AddPlanCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string mode = "dimensions";
    static std::string view = "window";
    auto* plan = app.add_subcommand("plan", "The panel plan");
    plan->add_option("--mode", mode, "What the pillars' labels show")
        ->check(CLI::IsMember({"dimensions", "strength", "capacity"}))
        ->capture_default_str();
    plan->add_option("--view", view, "Drawn as in the plot window or in the parameters dialog")
        ->check(CLI::IsMember({"window", "preview"}))
        ->capture_default_str();
    AddFiles(*plan, options, "Write the plan: .svg, .png, .pdf or .json, or a folder");
    plan->callback([&] { chosen = [&] { return RunPlan(options, host, mode, view); }; });
}

void AddConvertCommand(CLI::App& app, Options& options, HeadlessPlatform& host, Command& chosen) {
    static std::string target;
    auto* convert = app.add_subcommand("convert", "Convert a project to the other unit system and save it");
    convert->add_option("--to", target, "Target unit system")
        ->required()
        ->check(CLI::IsMember({"english", "metric"}));
    AddFiles(*convert, options, "The file or folder to write (default: beside the original)");
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
        ->check(CLI::IsMember({"length", "load", "load-grad", "stress", "stress-grad"}))
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

void AddStudy(CLI::App& command, StudyOptions& options, const std::string& output_help) {
    AddSettings(command, options.common);
    command.add_option("-o,--output", options.common.output, output_help)->type_name("PATH");
    command.add_flag("--force", options.common.force, "Replace existing files");
    command.add_option("--threads", options.threads, "Threads to calculate on (default: one a core)")
        ->type_name("N")
        ->check(CLI::Range(1U, 1024U));
    command.add_option("PROJECT", options.project, "The project to start from")->required()->type_name("");
}

void AddRowOptions(CLI::App& command, StudyOptions& options) {
    command.add_flag("--size", options.sizes, "The suggested sizes, too: SuggestedWeb and SuggestedBarrier, inches");
    command.add_option("--format", options.format, "Of standard output: csv or json")
        ->check(CLI::IsMember({"csv", "json"}))
        ->type_name("FORMAT");
}

constexpr const char* kFieldsFooter =
    "Fields, in the project's units: Height, DepthCover, HoleWidth, WebThickness, BarrierPillarWidth, NumberHoles,\n"
    "CoalStrength, UnitWeight, AbutmentAngle, SFWeb, SFBarrier.\n\n";

void AddSweepCommand(CLI::App& app, StudyOptions& options, HeadlessPlatform& host, Command& chosen) {
    auto* sweep = app.add_subcommand("sweep", "Every combination of the values that fields of a project are given");
    AddStudy(*sweep, options, "Write rows (.csv, .json, .xlsx) or a picture (.png, .svg, .pdf)");
    AddRowOptions(*sweep, options);
    sweep
        ->add_option("--vary", options.vary,
                     "FIELD=FIRST:LAST:STEP, FIELD=FIRST:LAST/COUNT or FIELD=V1,V2,V3; once a field, the last one "
                     "given runs fastest")
        ->required()
        ->take_all()
        ->expected(1)
        ->type_name("FIELD=VALUES");
    sweep->add_option("--of", options.of,
                      "The figure of a picture: Overall (default of a map), WebsOnly, BarrierPillar, ExtractionRatio, "
                      "SuggestedWeb, SuggestedBarrier")
        ->type_name("FIGURE");
    sweep->footer(std::string(kFieldsFooter) +
                  "Examples:\n"
                  "  tarvokol-cli sweep panel.TKL --vary DepthCover=50:400:5 > depth.csv\n"
                  "  tarvokol-cli sweep panel.TKL --vary WebThickness=2:12:0.5 --vary DepthCover=50:400:10 --of WebsOnly "
                  "-o map.svg\n"
                  "  tarvokol-cli sweep panel.TKL --vary NumberHoles=5,10,15,20 --size -o sizes.xlsx");
    sweep->callback([&] { chosen = [&] { return RunSweep(options, host); }; });
}

void AddTableCommand(CLI::App& app, StudyOptions& options, HeadlessPlatform& host, Command& chosen) {
    auto* table = app.add_subcommand("table", "A table of panels: each row of a CSV file sets some fields of a project");
    AddStudy(*table, options, "Write the rows: .csv, .json or .xlsx");
    AddRowOptions(*table, options);
    table->add_option("ROWS.csv", options.rows,
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
    auto* risk = app.add_subcommand("risk", "How likely the factors lie below their targets when figures are uncertain");
    AddStudy(*risk, options, "Write the summary (.txt, .json) or a picture (.png, .svg, .pdf)");
    risk->add_option("--random", options.random,
                     "FIELD=normal:MEAN:SD, lognormal:MEAN:SD, uniform:LO:HI or triangular:LO:MODE:HI; a figure that "
                     "ends in % is a share of the project's own; once a field")
        ->required()
        ->take_all()
        ->expected(1)
        ->type_name("FIELD=DISTRIBUTION");
    risk->add_option("--correlate", options.correlate, "FIELD,FIELD=R: correlation of a pair of normal fields")
        ->take_all()
        ->expected(1)
        ->type_name("A,B=R");
    risk->add_option("--samples", options.samples, "Number of samples (default 100000)")->type_name("N");
    risk->add_option("--seed", options.seed, "Seed of the random numbers (default 1)")->type_name("S");
    risk->add_flag("--plain", options.plain, "Independent draws instead of a Latin hypercube");
    risk->add_option("--samples-out", options.samples_out, "Write all samples as CSV")->type_name("FILE.csv");
    risk->footer(std::string(kFieldsFooter) +
                 "Examples:\n"
                 "  tarvokol-cli risk panel.TKL --random CoalStrength=lognormal:100%:15%\n"
                 "  tarvokol-cli risk panel.TKL --random CoalStrength=normal:900:135 --random "
                 "DepthCover=triangular:90%:100%:120% -o risk.png\n"
                 "  tarvokol-cli risk panel.TKL --random Height=uniform:5:7 --samples 1000000 --json");
    risk->callback([&] { chosen = [&] { return RunRiskCommand(options, host); }; });
}

// A negative number that is an argument by itself is a VALUE, no option: it goes to the end, behind "--".
void ProtectNegativeValue(std::vector<std::string>& arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), "--");
    const auto found = std::find_if(arguments.begin(), end, [](const std::string& word) {
        return word.size() > 1 && word[0] == '-' && word.find_first_of("0123456789. ", 1) == 1;
    });
    if (found == end) return;
    const std::string value = *found;
    if (end == arguments.end()) arguments.emplace_back("--");
    arguments.erase(std::find(arguments.begin(), arguments.end(), value));
    arguments.push_back(value);
}

// CLI11 takes a word in square brackets for a list. With this at its end, which no argument can hold, a path
// of that form stays whole.
constexpr char kNoList = '\0';

void ProtectBrackets(std::vector<std::string>& arguments) {
    for (std::string& word : arguments)
        if (word.size() > 1 && word.front() == '[' && word.back() == ']') word += kNoList;
}

void Unprotect(std::string& word) {
    if (!word.empty() && word.back() == kNoList) word.pop_back();
}

void UnprotectPaths(Options& options) {
    for (std::string& file : options.files) Unprotect(file);
    Unprotect(options.output);
    Unprotect(options.settings);
}

std::vector<std::string> Arguments(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string command = arguments.empty() ? "" : arguments.front();
    if (command == "units")
        ProtectNegativeValue(arguments);
    else if (command != "settings")
        ProtectBrackets(arguments);
    return {arguments.rbegin(), arguments.rend()};  // CLI11 takes them last first
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

// The configuration file is read before anything is done, also for a command that asks no setting.
int RunChosen(const Command& chosen, const Options& options) {
    try {
        ReadConfiguration(options.settings);
        return chosen();
    } catch (const UsageError& error) {
        std::cerr << error.text << '\n';
        return exit_status::WrongUsage;
    }
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    HeadlessPlatform host;
    host.Install();
    Options options;
    Command chosen;
    CLI::App app("Stability design of highwall mining panels, without a window", "tarvokol-cli");
    app.set_version_flag("--version", "tarvokol-cli " + VersionString());
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
    try {
        app.parse(Arguments(argc, argv));
    } catch (const CLI::ParseError& error) {
        return StatusOfOutput(app.exit(error) == 0 ? exit_status::Done : exit_status::WrongUsage);
    }
    UnprotectPaths(options);
    UnprotectPaths(study.common);
    for (std::string* path : {&study.project, &study.rows, &study.samples_out}) Unprotect(*path);
    return StatusOfOutput(RunChosen(chosen, options));
}

}  // namespace tarvokol::cli
