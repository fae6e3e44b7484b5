#include "core/engine/preview_record.h"

#include <algorithm>

#include "core/engine/project_record.h"
#include "core/runtime/checked.h"

namespace tarvokol {

void LoadWorkParms() {
    PreviewRecord.Height = ProjectRecord.Height;
    PreviewRecord.DepthCover = ProjectRecord.DepthCover;
    PreviewRecord.HoleWidth = ProjectRecord.HoleWidth;
    PreviewRecord.CrosscutSpacing = ProjectRecord.CrosscutSpacing;
    PreviewRecord.CrosscutAngle = ProjectRecord.CrosscutAngle;
    PreviewRecord.WebThickness = ProjectRecord.WebThickness;
    PreviewRecord.BarrierPillarWidth = ProjectRecord.BarrierPillarWidth;
    PreviewRecord.NumberHoles = ProjectRecord.NumberHoles;

    const int pillars = std::min<int>(ProjectRecord.NumberHoles, MaxHoles);
    PreviewRecord.CenterDistance[1] = Checked(ProjectRecord.HoleWidth + ProjectRecord.BarrierPillarWidth);
    for (int i = 2; i <= pillars; ++i)
        PreviewRecord.CenterDistance[i] = Checked(PreviewRecord.HoleWidth + PreviewRecord.WebThickness);
    for (int i = 1; i <= pillars; ++i)
        PreviewRecord.PreviewCrosscutSpacing[i] = ToSingle(PreviewRecord.CrosscutSpacing);
    PreviewRecord.PreviewCrosscutAngle = ToSingle(ProjectRecord.CrosscutAngle);

    PreviewRecord.CoalStrength = ProjectRecord.CoalStrength;
    PreviewRecord.UnitWeight = ProjectRecord.UnitWeight;
    PreviewRecord.AbutmentAngle = ProjectRecord.AbutmentAngle;
    PreviewRecord.SFWeb = ProjectRecord.SFWeb;
    PreviewRecord.SFBarrier = ProjectRecord.SFBarrier;
}

}  // namespace tarvokol
