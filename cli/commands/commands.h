// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of tarvokol-cli. Each brings its options, its help and its run in one file, and makes itself in a function
// that stands here.
#pragma once

#include <array>
#include <memory>

#include "cli/line/command.h"

namespace tarvokol::cli {

std::unique_ptr<Command> ResultsCommand();
std::unique_ptr<Command> SizeCommand();
std::unique_ptr<Command> SaveCommand();
std::unique_ptr<Command> CurveCommand();
std::unique_ptr<Command> PlanCommand();
std::unique_ptr<Command> ConvertCommand();
std::unique_ptr<Command> UnitsCommand();
std::unique_ptr<Command> SettingsCommand();
std::unique_ptr<Command> SweepCommand();
std::unique_ptr<Command> TableCommand();
std::unique_ptr<Command> RiskCommand();
std::unique_ptr<Command> FitCommand();
std::unique_ptr<Command> DesignCommand();
std::unique_ptr<Command> KeptStudyCommand();

// In the order in which the help lists them.
inline constexpr std::array kCommands{
    ResultsCommand,  SizeCommand,  SaveCommand,  CurveCommand, PlanCommand, ConvertCommand, UnitsCommand,
    SettingsCommand, SweepCommand, TableCommand, RiskCommand,  FitCommand,  DesignCommand,  KeptStudyCommand};

CommandTable AllCommands();

}  // namespace tarvokol::cli
