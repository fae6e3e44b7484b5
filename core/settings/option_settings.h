// SPDX-License-Identifier: GPL-3.0-or-later
// Program options, section "TARVOKOLOptions" of the configuration file, at first their built-in values. Those that
// reach into the calculation stand in `OptionsRecord`.
#pragma once

#include <cstdint>

namespace tarvokol {

struct OptionValues {
    int16_t ShowInputScreenOnLoad = 1;
    int16_t ViewChildWindow = 1;
    int16_t PrintModuleHeader = 1;
    int16_t PlotEntryDims = 1;
    int16_t PlotXcutDims = 0;
    int16_t PlotSingleXcutDims = 0;
    int16_t PlotGobExtLoose = 0;
    int16_t PlotGobDims = 0;
    int16_t PrintPlotReminder = 1;
    int16_t AskOfficeInstall = 1;  // 1: the export does not ask
};
namespace state {
inline OptionValues Options;
}

// Written by core/settings/key_tables and desktop/settings/frmTARVOOpts.
inline auto& ShowInputScreenOnLoad = state::Options.ShowInputScreenOnLoad;
inline auto& ViewChildWindow = state::Options.ViewChildWindow;
inline auto& PrintModuleHeader = state::Options.PrintModuleHeader;
inline auto& PlotEntryDims = state::Options.PlotEntryDims;
inline auto& PlotXcutDims = state::Options.PlotXcutDims;
inline auto& PlotSingleXcutDims = state::Options.PlotSingleXcutDims;
inline auto& PlotGobExtLoose = state::Options.PlotGobExtLoose;
inline auto& PlotGobDims = state::Options.PlotGobDims;
inline auto& PrintPlotReminder = state::Options.PrintPlotReminder;
inline auto& AskOfficeInstall = state::Options.AskOfficeInstall;

}  // namespace tarvokol
