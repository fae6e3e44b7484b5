// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up and shutdown: the entry routine as steps that can be run in order.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Identity, set first, never changed.
struct ProgramIdentity {
    std::string HelpFileName;
    std::string PdfHelpName;
    std::string UpdatePageAddress;
    std::string SupportAddress;
    std::string RunTimeHelpFile;  // full name

    // Names set at start-up and read by nothing so far.
    OneBased<std::string, 2> OrdinalNames;
};
namespace state {
inline ProgramIdentity Identity;
}
// Written by core/program/built_in_values.
inline auto& HelpFileName = state::Identity.HelpFileName;
inline auto& PdfHelpName = state::Identity.PdfHelpName;
inline auto& UpdatePageAddress = state::Identity.UpdatePageAddress;
inline auto& SupportAddress = state::Identity.SupportAddress;
inline auto& RunTimeHelpFile = state::Identity.RunTimeHelpFile;
inline auto& OrdinalNames = state::Identity.OrdinalNames;

// What Main asks of the main window, which the binding creates.
struct MainWindowSteps {
    std::function<void()> Create;            // creates it hidden and runs its load, unless that has happened
    std::function<void()> Show;              // modeless
    std::function<void()> ApplyHistoryFont;  // font of the history text
    std::function<void()> CloseParameters;   // cancels the parameters dialog if it is open
    std::function<bool()> OfferLeftCopies;   // what earlier runs have left behind; true if one was opened
};

// The built-in value of every setting, option, name table and graph default. No folder is looked for: the
// settings that name one take the folder variables as they stand.
void SetBuiltInValues();

// Identity, module defaults, graph values, name tables, options, paths: everything that stands before the
// configuration file is touched. Finds and creates the user's data folders.
void InitializeProgram();

// The part of it that finds the folders and sets the settings' built-in values.
void InitModuleDefaults();

// Sets `RunTimeHelpFile` from `AppFolder` and `HelpFileName`.
void SetHelpFile();

// Puts every variable of the program back to what a fresh process has, closes all files, then sets the
// built-in values. The bindings of the platform stay.
void ResetProgram();

// The whole start-up. `command_line` is one project path, quotes and all. Raises what loading it raises.
void Main(const std::string& command_line, const MainWindowSteps& window);

// The first step of the main window's load: makes the program's folder the current one.
void EnterProgramFolder();

// Asks about unsaved work when the main window is to close, and saves; false if the window must stay open.
bool MayCloseProgram();

// What the main window's unload does beside closing: help viewer, recent-file list.
void ShutDown();

}  // namespace tarvokol
