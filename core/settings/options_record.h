// SPDX-License-Identifier: GPL-3.0-or-later
// The program options that reach into the calculation. They are keys of the configuration file.
#pragma once

#include <cstdint>

namespace tarvokol {

struct EngineOptions {
    int16_t OutputStrGradUnits = 1;  // English forces: 1 tons, else pounds
    int16_t OutputStrUnits = 0;      // English stresses: 0 psi, else psf
    float PlotRangeMin = 50.0f;      // range of a parametric curve, percent of the base value
    float PlotRangeMax = 100.0f;     // percent above the base value
    float DefaultAbutment = 21.0f;   // of a new project, degrees
    float DefaultSFWeb = 1.6f;
    float DefaultSFBarrier = 2.0f;
};

// Written by core/settings/configuration, core/settings/key_tables and desktop/settings/frmTARVOOpts.
inline EngineOptions OptionsRecord;

}  // namespace tarvokol
