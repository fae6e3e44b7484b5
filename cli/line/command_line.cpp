// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/command_line.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <list>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "cli/line/arguments.h"
#include "cli/line/build_name.h"
#include "cli/line/help_text.h"
#include "cli/line/settings_file.h"
#include "cli/line/standard_input.h"
#include "cli/line/usage_errors.h"
#include "core/files/file_replacement.h"
#include "core/files/os_errors.h"
#include "core/files/unfinished_files.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/shown_text.h"

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
        return TellUsage(command.Name(), error.text);
    }
}

// Ends the process as the signal would have, without the files that it was building.
void TidyUpAndEnd(int signal) {
    const int error = errno;
    RemoveUnfinishedFiles();
    ::raise(signal);
    // The signal waits until this returns.
    errno = error;
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
        app_.formatter(std::make_shared<HelpText>());
        for (const auto& command : commands) {
            CLI::App& entry = *app_.add_subcommand(command->Name(), command->Summary());
            if (const std::string footer = command->Footer(); !footer.empty()) entry.footer(footer);
            command->Describe(options_.emplace_back(entry));
        }
        // Last: a command that has no footer of its own takes over what stands there as it is added.
        app_.footer("`tarvokol-cli help COMMAND` tells more of a command.");
    }

    // Gives the commands the values that the words name; the exit status where they cannot be read or ask for help.
    std::optional<int> Read(const std::vector<std::string>& words, bool takes_numbers) {
        try {
            app_.parse(Arguments(words, takes_numbers));
        } catch (const CLI::ParseError& error) {
            // Questions such as --help are errors of the library that ask for no status.
            if (error.get_exit_code() == 0) return app_.exit(error);
            return TellUnreadable(app_, error, words);
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

// "help sweep" asks for what "sweep --help" does, "help" alone for the help of the program.
std::vector<std::string> WithHelpAsOption(const std::vector<std::string>& words) {
    if (words.empty() || words.front() != "help") return words;
    std::vector<std::string> asked(words.begin() + 1, words.end());
    asked.insert(asked.begin() + (asked.empty() ? 0 : 1), "--help");
    return asked;
}

// Nothing for a word that is no command.
Command* CommandNamed(const CommandTable& commands, const std::string& name) {
    for (const auto& command : commands)
        if (command->Name() == name) return command.get();
    return nullptr;
}

}  // namespace

int RunWords(const CommandTable& commands, const std::vector<std::string>& given, HeadlessPlatform& host) {
    Reader reader(commands);
    const std::vector<std::string> words = WithHelpAsOption(given);
    const std::string first = words.empty() ? "" : words.front();
    const Command* const named = CommandNamed(commands, first);
    if (named == nullptr && !words.empty() && !first.starts_with('-'))
        return TellUsageAndMore("", NoneOf(first, "command", NamesOf(commands)));
    const bool takes_numbers = named != nullptr && named->TakesNumbers();
    if (const auto status = reader.Read(words, takes_numbers)) return *status;
    return RunChosen(*CommandNamed(commands, reader.CommandRead()), host);
}

int RunCommandLine(const CommandTable& commands, int argc, char** argv) {
    TidyUpOnSignals();
    SetInPlaceListener([](const std::string& path, const std::string& why) {
        std::cerr << WithControlsShown(path + ": rewritten in place: " + why) << '\n';
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
