// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/file_conversion.h"

#include "core/project/lifecycle.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr int16_t kMetric = 1;

// The record's factors turn metric figures into English ones.
void Convert(double& value, double factor) {
    value = RoundToTwoDecimals(ConvertTargetUnits != kMetric ? value * factor : value / factor);
}

}  // namespace

bool ConvertProject() {
    PanelInputs& record = ProjectRecord;
    for (double* length : {&record.Height, &record.DepthCover, &record.HoleWidth, &record.WebThickness,
                           &record.BarrierPillarWidth, &record.CrosscutSpacing})
        Convert(*length, FeetPerMetre);
    for (int i = 1; i <= record.NumberHoles - 1; ++i) Convert(record.CenterDistance[i], FeetPerMetre);
    Convert(record.CoalStrength, PsiPerMegapascal);
    Convert(record.UnitWeight, PcfPerKilonewton);
    ProjectFileName =
        (ConvertTargetUnits != kMetric ? "English_" : "Metric_") + FileNameOf(ProjectFileName, 0);
    UnitSystem = ConvertTargetUnits;
    ProjectSaved = 0;
    KeepRecoveryCopy();
    UpdateMainCaption();
    return true;
}

}  // namespace tarvokol
