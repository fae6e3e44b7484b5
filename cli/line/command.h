// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line knows of a command. The commands themselves stand in cli/commands.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/line/command_options.h"
#include "cli/line/options.h"
#include "core/headless/headless_platform.h"

namespace tarvokol::cli {

class Command {
  public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    // The word by which it is called: "sweep".
    virtual std::string Name() const = 0;

    // One line of the help.
    virtual std::string Summary() const = 0;

    // Tells its options and arguments, in the order in which the help lists them, and where their values go.
    virtual void Describe(CommandOptions& options) = 0;

    // What stands below the options in its help: examples.
    virtual std::string Footer() const { return ""; }

    // True if a word such as "-5" is an argument, not an option.
    virtual bool TakesNumbers() const { return false; }

    // Once every word is read: what follows for the options that all commands share.
    virtual void Settle() {}

    // Does the work; the exit status. Raises UsageError.
    virtual int Run(HeadlessPlatform& host) = 0;

    Options& Common() { return options_; }

  protected:
    Options options_;
};

// The commands in the order in which the help lists them.
using CommandTable = std::vector<std::unique_ptr<Command>>;

}  // namespace tarvokol::cli
