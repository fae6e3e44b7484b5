// Start-up and shutdown: the entry routine as steps that can be run in order.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "settings/program_settings.h"

namespace tarvokol {

// Identity, set first, never changed; `ExeNameUpper` stands with the settings.
inline std::string HelpFileName;
inline std::string PdfHelpName;
inline std::string UpdatePageAddress;
inline std::string SupportAddress;
inline std::string RunTimeHelpFile;  // full name

// What Main asks of the main window, which the binding creates.
struct MainWindowSteps {
    std::function<void()> Create;            // creates it hidden and runs its load, unless that has happened
    std::function<void()> Show;              // modeless
    std::function<void()> ApplyHistoryFont;  // font of the history text
};

// Steps 1 to 12: identity, module defaults, graph values, name tables, options, paths.
void InitializeProgram();
void InitModuleDefaults();

// The whole start-up. `command_line` is one project path, quotes and all. Raises what loading it raises.
void Main(const std::string& command_line, const MainWindowSteps& window);

// What the main window's unload does beside closing: help viewer, recent-file list.
void ShutDown();

}  // namespace tarvokol
