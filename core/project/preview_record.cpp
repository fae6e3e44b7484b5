// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/preview_record.h"

#include <algorithm>

#include "core/project/project_record.h"
#include "core/runtime/checked.h"

namespace tarvokol {

void DerivePreviewPitches() {
    BuildCenterDistances(PreviewRecord);
    for (int i = 1; i <= PreviewRecord.NumberHoles; ++i)
        PreviewRecord.PreviewCrosscutSpacing[i] = ToSingle(PreviewRecord.CrosscutSpacing);
    PreviewRecord.PreviewCrosscutAngle = ToSingle(PreviewRecord.CrosscutAngle);
}

void LoadWorkParms() {
    PanelInputs inputs = ProjectRecord;
    inputs.SpareSingle = PreviewRecord.SpareSingle;
    inputs.CenterDistance = PreviewRecord.CenterDistance;
    inputs.NumberHoles = std::min<int16_t>(ProjectRecord.NumberHoles, MaxHoles);
    static_cast<PanelInputs&>(PreviewRecord) = inputs;
    DerivePreviewPitches();
    PreviewRecord.NumberHoles = ProjectRecord.NumberHoles;
}

}  // namespace tarvokol
