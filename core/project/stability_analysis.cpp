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
    AnalysisState& results = WorkingParameters;
    const OutputRows rows =
        PutIntoOutputUnits(results, ProjectUnits(), {results.CalcStressGrade, OptionsRecord.OutputStrUnits});
    results.ForceUnitLabel = UnitLabels(rows.forces);
    results.StressUnitLabel = UnitLabels(rows.stresses);
}

}  // namespace tarvokol
