// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/file_conversion.h"

#include "core/project/file_names.h"
#include "core/project/lifecycle.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr int16_t kMetric = 1;

// The factors turn metric figures into English ones.
void Convert(double& value, double factor, int16_t target) {
    value = RoundToTwoDecimals(target != kMetric ? value * factor : value / factor);
}

}  // namespace

void ConvertInputs(PanelInputs& inputs, int16_t target) {
    for (double* length : {&inputs.Height, &inputs.DepthCover, &inputs.HoleWidth, &inputs.WebThickness,
                           &inputs.BarrierPillarWidth, &inputs.CrosscutSpacing})
        Convert(*length, FeetPerMetre, target);
    for (int i = 1; i <= inputs.NumberHoles - 1; ++i) Convert(inputs.CenterDistance[i], FeetPerMetre, target);
    Convert(inputs.CoalStrength, PsiPerMegapascal, target);
    Convert(inputs.UnitWeight, PcfPerKilonewton, target);
}

std::string ConvertedName(const std::string& path, int16_t target) {
    return (target != kMetric ? "English_" : "Metric_") + FileNameOf(path, 0);
}

bool ConvertProject() {
    PanelInputs converted = ProjectRecord;
    ConvertInputs(converted, ConvertTargetUnits);
    ProjectRecord = converted;
    ProjectFileName = ConvertedName(ProjectFileName, ConvertTargetUnits);
    UnitSystem = ConvertTargetUnits;
    MarkProjectConverted();
    UpdateMainCaption();
    return true;
}

}  // namespace tarvokol
