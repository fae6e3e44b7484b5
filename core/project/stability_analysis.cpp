// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/stability_analysis.h"

#include "core/project/project_record.h"
#include "core/project/working_parameters.h"
#include "core/settings/options_record.h"

namespace tarvokol {

void RunStabilityAnalysis() {
    AnalysePanel(WorkingParameters);
}

// Forces go by the option at the time of the check, stresses by the option of now.
void ConvertToOutputUnits() {
    const OutputFigures output =
        InOutputUnits({WorkingParameters, ProjectUnits()},
                      {WorkingParameters.CalcStressGrade, OptionsRecord.OutputStrUnits});
    static_cast<PanelAnalysis&>(WorkingParameters) = output.figures;
    WorkingParameters.ForceUnitLabel = output.force_label;
    WorkingParameters.StressUnitLabel = output.stress_label;
}

}  // namespace tarvokol
