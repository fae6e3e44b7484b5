// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/command_line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <list>
#include <optional>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "cli/line/arguments.h"
#include "cli/line/build_name.h"
#include "cli/line/settings_file.h"
#include "cli/line/standard_input.h"
#include "core/files/file_replacement.h"
#include "core/files/os_errors.h"
#include "core/files/unfinished_files.h"
#include "core/runtime/nearest_word.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol::cli {
namespace {

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
    if (!options.has_formats) return;
    if (!options.format.empty() && options.output.empty()) options.output = kStandardStream;
    if (options.output != kStandardStream) return;
    const bool objects = options.format == "json" || options.format == "jsonl";
    if (objects) options.json = true;
    if (options.format.empty() || objects) options.output.clear();
}

// The configuration file is read before anything is done, also for a command that asks no setting.
int RunChosen(Command& command, HeadlessPlatform& host) {
    command.Settle();
    SettleStandardOutput(command.Common());
    try {
        AdmitStandardProject(command.Common());
        ReadConfiguration(command.Common().settings);
        return command.Run(host);
    } catch (const UsageError& error) {
        std::cerr << error.text << '\n';
        return exit_status::WrongUsage;
    }
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
        std::cerr << word << ": the options of a command stand after its name\n";
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
    for (const int signal :
         {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGQUIT, SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
        action.sa_handler = TidyUpAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

// The commands as the library that reads the words knows them.
class Reader {
  public:
    explicit Reader(const CommandTable& commands) {
        app_.set_version_flag("--version", BuildName());
        app_.require_subcommand(1);
        for (const auto& command : commands) {
            CLI::App& entry = *app_.add_subcommand(command->Name(), command->Summary());
            if (const std::string footer = command->Footer(); !footer.empty()) entry.footer(footer);
            command->Describe(options_.emplace_back(entry));
        }
    }

    // Gives the commands the values that the words name; the exit status where they cannot be read or ask for help.
    std::optional<int> Read(std::vector<std::string> arguments) {
        try {
            app_.parse(std::move(arguments));
        } catch (const CLI::ParseError& error) {
            return StatusOfParseError(app_, error);
        }
        for (CommandOptions& options : options_) options.UnprotectValues();
        return std::nullopt;
    }

    std::string CommandRead() const { return app_.get_subcommands().front()->get_name(); }

  private:
    CLI::App app_{"Stability design of highwall mining panels, without a window", "tarvokol-cli"};
    std::list<CommandOptions> options_;
};

std::vector<std::string> NamesOf(const CommandTable& commands) {
    std::vector<std::string> names;
    for (const auto& command : commands) names.push_back(command->Name());
    return names;
}

// Nothing for a word that is no command.
Command* CommandNamed(const CommandTable& commands, const std::string& name) {
    for (const auto& command : commands)
        if (command->Name() == name) return command.get();
    return nullptr;
}

}  // namespace

int RunWords(const CommandTable& commands, const std::vector<std::string>& words, HeadlessPlatform& host) {
    Reader reader(commands);
    const std::string first = words.empty() ? "" : words.front();
    const Command* const named = CommandNamed(commands, first);
    if (named == nullptr && !words.empty() && !first.starts_with('-'))
        return TellWrongWord('"' + first + '"', "command", NearestWord(first, NamesOf(commands)));
    const bool takes_numbers = named != nullptr && named->TakesNumbers();
    if (const auto status = reader.Read(Arguments(words, takes_numbers))) return *status;
    return RunChosen(*CommandNamed(commands, reader.CommandRead()), host);
}

int RunCommandLine(const CommandTable& commands, int argc, char** argv) {
    TidyUpOnSignals();
    SetInPlaceListener([](const std::string& path, const std::string& why) {
        std::cerr << path << ": rewritten in place: " << why << '\n';
    });
    std::ios::sync_with_stdio(false);
    // Many objects a call of the system.
    static std::array<char, 65536> output_room;
    std::cout.rdbuf()->pubsetbuf(output_room.data(), output_room.size());
    HeadlessPlatform host;
    host.Install();
    return StatusOfOutput(RunWords(commands, {argv + 1, argv + argc}, host));
}

}  // namespace tarvokol::cli
