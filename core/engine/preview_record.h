#pragma once

namespace tarvokol {

// Fills `PreviewRecord` from `ProjectRecord`, for the plan that the results viewer leads to. Pillars beyond
// 20 are left out.
void LoadWorkParms();

}  // namespace tarvokol
