// SPDX-License-Identifier: GPL-3.0-or-later
// How a command tells what it takes from the command line.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/line/options.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tarvokol::cli {

// An option, or an argument by its place: what the help says of it, and which words it refuses.
struct OptionFacts {
    std::string spelling;        // "-o,--output"; a bare word is the name of an argument by its place
    std::string help;            // one sentence without its stop
    std::string value = {};      // what the help calls the value of an option: "PATH"
    bool required = false;       // wrong usage without it
    bool shows_default = false;  // the help tells the value that it has now
    bool existing_file = false;  // refuses what is no file
    std::vector<std::string> choices = {};  // refuses any other word, with the nearest of them
    std::vector<std::string> offers = {};   // listed by the help, and completed; the command refuses others
    std::function<std::string(const std::string&)> refusal =
        nullptr;  // what is wrong with a word; empty if nothing
};

// The options and arguments of one command. Every value must outlive it.
class CommandOptions {
  public:
    explicit CommandOptions(CLI::App& command) : command_(command) {}

    void Flag(const OptionFacts& facts, bool& value);
    void Text(const OptionFacts& facts, std::string& value);
    // Of an option one value each time that it is given, of an argument all that follow.
    void Texts(const OptionFacts& facts, std::vector<std::string>& values);

    // Makes the values that were read what was given: see Unprotect.
    void UnprotectValues();

  private:
    void Refine(CLI::Option& option, const OptionFacts& facts);

    CLI::App& command_;
    std::vector<std::string*> texts_;
    std::vector<std::vector<std::string>*> lists_;
};

// What a command tells one result of: each of the projects named, each row of a study, or all that it does.
enum class ResultOf { File, Row, Command };

// --settings, --json and --quiet, which every command has.
void AddSettings(CommandOptions& command, Options& options, ResultOf result);

// -o, --format if there are formats, --force and --stdin-project.
void AddOutput(CommandOptions& command, Options& options, ResultOf result, const std::string& help,
               const std::vector<std::string>& formats);

// Both, and the FILEs.
void AddFiles(CommandOptions& command, Options& options, const std::string& output_help,
              const std::vector<std::string>& formats);

// --threads, for the commands that calculate on all cores; and the number that was given, else that of the cores.
void AddThreads(CommandOptions& command, Options& options);
unsigned ThreadsOf(const Options& options);

// --bare-header, for the commands that write the units of their columns into the header.
void AddBareHeader(CommandOptions& command, bool& value);

// For OptionFacts::refusal: an empty word is most often a variable of a script that nobody has set.
std::string WhyEmpty(const std::string& text);

// "; did you mean sweep?"; nothing for no word.
std::string DidYouMean(const std::string& nearest);

}  // namespace tarvokol::cli
