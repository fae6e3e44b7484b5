// SPDX-License-Identifier: GPL-3.0-or-later
// The trial copy of the project's inputs that the drawing of the plan reads.
#pragma once

#include "core/engine/panel.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// The inputs with the drawing's own pitches.
struct PreviewInputs : PanelInputs {
    OneBased<float, MaxHoles> PreviewCrosscutSpacing;
    float PreviewCrosscutAngle = 0;
    OneBased<float, MaxHoles> XcutPitch;
};

// Written by core/graphics/TarvoGraf, core/project/parameter_texts and core/project/preview_record.
inline PreviewInputs PreviewRecord;

// Fills `PreviewRecord` from `ProjectRecord`, all but its spare single, for the plan that the results viewer
// leads to. Pillars beyond 20 are left out.
void LoadWorkParms();

// Rebuilds the preview's center distances, crosscut spacings and angle from its inputs. More than 20 holes
// raise "Subscript out of range".
void DerivePreviewPitches();

}  // namespace tarvokol
