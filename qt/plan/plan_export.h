// SPDX-License-Identifier: GPL-3.0-or-later
// The panel plan as a picture file.
#pragma once

#include <string>

namespace tarvokol {

// A square sheet as the plot window shows it, or the wide one of the parameters dialog's frame.
enum class PlanView { Window, Preview };

// Draws the plan of `PreviewRecord` and writes it in the format of the path's extension: "png", "svg" or
// "pdf"; any other raises "Invalid procedure call or argument" (5). Raises the error of the operating system
// if the file cannot be written. False, and no file, if the plan was refused.
bool ExportPlan(const std::string& path, PlanView view);

}  // namespace tarvokol
