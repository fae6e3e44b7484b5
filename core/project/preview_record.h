// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarvokol {

// Fills `PreviewRecord` from `ProjectRecord`, all but its spare single, for the plan that the results viewer
// leads to. Pillars beyond 20 are left out.
void LoadWorkParms();

// Rebuilds the preview's center distances, crosscut spacings and angle from its inputs. More than 20 holes
// raise "Subscript out of range".
void DerivePreviewPitches();

}  // namespace tarvokol
